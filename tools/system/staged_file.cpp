#include "tools/system/staged_file.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>
#include <system_error>

#include "tools/errors.h"
#include "tools/system/file_name.h"
#include "tools/system/system_files.h"

namespace quorvex::tools {
namespace {

constexpr int kNameAttempts = 16;  // a random name of 32 bits is practically never taken twice

[[noreturn]] void ThrowCannotWrite(const std::filesystem::path& path, const std::string& reason) {
  throw InputError(fmt::format("cannot write {}: {}", Utf8Name(path), reason));
}

// Renaming over a device or a pipe would replace the device itself.
void RequireReplaceable(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  if (std::filesystem::is_directory(status)) {
    ThrowCannotWrite(path, "it is a directory");
  }
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    ThrowCannotWrite(path, "it is not a regular file");
  }
}

}  // namespace

StagedFile::StagedFile(const std::filesystem::path& targetPath,
                       const std::vector<std::uint8_t>& bytes)
    : path_(targetPath) {
  RequireReplaceable(path_);
  std::random_device random;
  std::FILE* file = nullptr;
  for (int attempt = 0; attempt < kNameAttempts && file == nullptr; ++attempt) {
    temporaryPath_ = path_;
    temporaryPath_ += fmt::format(".{:08x}.tmp", static_cast<std::uint32_t>(random()));
    file = CreateNewFile(temporaryPath_);  // never writes into somebody else's file
    if (file == nullptr && errno != EEXIST) {
      break;
    }
  }
  if (file == nullptr) {
    ThrowCannotWrite(path_, std::strerror(errno));
  }
  // An empty vector's data may be null, which fwrite must not get.
  const bool written =
      bytes.empty() || std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  const int writeError = errno;
  const bool closed = std::fclose(file) == 0;  // the last block is written here
  if (!written || !closed) {
    const int error = written ? errno : writeError;
    RemoveTemporary();  // a throwing constructor runs no destructor
    ThrowCannotWrite(path_, std::strerror(error));
  }
}

StagedFile::~StagedFile() { RemoveTemporary(); }

void StagedFile::Commit() {
  std::error_code error;
  std::filesystem::rename(temporaryPath_, path_, error);
  if (error) {
    ThrowCannotWrite(path_, error.message());
  }
  temporaryPath_.clear();
}

void StagedFile::RemoveTemporary() noexcept {
  if (!temporaryPath_.empty()) {
    std::error_code ignored;
    std::filesystem::remove(temporaryPath_, ignored);
  }
}

void WriteFileWhole(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes) {
  StagedFile(path, bytes).Commit();
}

}  // namespace quorvex::tools
