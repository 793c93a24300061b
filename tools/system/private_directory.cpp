#include "tools/system/private_directory.h"

#include <fmt/format.h>

#include <cstdint>
#include <cstdlib>
#include <stdexcept>

#include "tools/system/file_name.h"
#include "tools/system/worker_process.h"

namespace quorvex::tools {
namespace {

// Bytes; the pictures of a detection's stages take several times the picture itself.
constexpr std::uintmax_t kLeastSpace = 1u << 20;

// ", /absent (the variable TMPDIR names it),"; empty when no variable does. In the order in which
// the variables are looked at.
std::string NamedByVariable() {
  for (const char* variable : {"TMPDIR", "TMP", "TEMP", "TEMPDIR"}) {
    const char* folder = std::getenv(variable);
    if (folder != nullptr) {
      return fmt::format(", {} (the variable {} names it),", folder, variable);
    }
  }
  return "";
}

}  // namespace

PrivateDirectory::PrivateDirectory() : path_(MakePrivateDirectory()) {
  try {
    owner_ = std::make_unique<DirectoryOwner>(path_);
  } catch (const std::exception&) {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
    throw;
  }
}

PrivateDirectory::~PrivateDirectory() {
  owner_->Release();  // on Windows a file that is open stays
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void RemoveDirectoriesOfKilledRuns() { RemoveOwnerlessDirectories(FolderForTemporaryFiles()); }

std::filesystem::path FolderForTemporaryFiles() {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  if (error) {
    throw std::runtime_error(fmt::format("the folder for temporary files{} cannot be used: {}",
                                         NamedByVariable(), error.message()));
  }
  return std::filesystem::absolute(folder);
}

std::string DescribeShortage(const std::filesystem::path& folder) {
  std::error_code error;
  const std::filesystem::space_info space = std::filesystem::space(folder, error);
  if (error || space.available >= kLeastSpace) {
    return "";
  }
  return fmt::format(
      "the disk that holds {}, the folder for temporary files, is full ({} bytes are left)",
      Utf8Name(folder), space.available);
}

}  // namespace quorvex::tools
