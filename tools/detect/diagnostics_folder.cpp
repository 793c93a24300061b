#include "tools/detect/diagnostics_folder.h"

#include <fmt/format.h>

#include <filesystem>
#include <system_error>

#include "tools/detect/image_names.h"
#include "tools/detect/list_folder.h"
#include "tools/detect/stage_pictures.h"
#include "tools/errors.h"
#include "tools/system/file_name.h"
#include "tools/system/output_file.h"
#include "tools/system/staged_file.h"

namespace quorvex::tools {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void FailToKeep(const std::filesystem::path& folder, const std::string& reason) {
  throw InputError(fmt::format("cannot keep diagnostics in {}: {}", Utf8Name(folder), reason));
}

// What cannot be looked for, as a list on a drive that does not exist, counts as not written.
void KeepFile(const fs::path& from, const fs::path& to) {
  std::error_code error;
  if (fs::exists(from, error)) {
    CopyFileWhole(from, to);
    return;
  }
  fs::remove(to, error);
  if (error) {
    FailToKeep(to.parent_path(), error.message());
  }
}

}  // namespace

std::vector<fs::path> DiagnosticsFolders(const std::filesystem::path& folder,
                                         const std::vector<std::filesystem::path>& images) {
  if (images.size() == 1) {
    return {folder};
  }
  std::vector<fs::path> folders;
  for (const fs::path& name : NamesOfImages(images)) {
    folders.push_back(folder / name);
  }
  return folders;
}

void PrepareDiagnosticsFolder(const std::filesystem::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) {
    FailToKeep(folder, error.message());
  }
  RequireWritable(folder / kStagePictures[0].file);
}

void KeepDiagnostics(const std::filesystem::path& directory, const std::filesystem::path& folder) {
  for (const StagePicture& picture : kStagePictures) {
    KeepFile(directory / picture.file, folder / picture.file);
  }
  for (const char* name : kListFiles) {
    KeepFile(ListFolder(directory) / name, folder / name);
  }
}

}  // namespace quorvex::tools
