#include "tools/detect/diagnostics_folder.h"

#include <fmt/format.h>

#include <filesystem>
#include <set>
#include <system_error>

#include "tools/detect/list_folder.h"
#include "tools/errors.h"
#include "tools/system/output_file.h"
#include "tools/system/system_files.h"

namespace quorvex::tools {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPictures[] = {
    "ProImage.bmp", "Binarization.bmp", "Dilation.bmp",    "Contour.bmp",        "SRegion.bmp",
    "Mask.bmp",     "Region.bmp",       "Sobel.bmp",       "Eliminate.bmp",      "Sauvola.bmp",
    "Thining.bmp",  "Lines.bmp",        "LineSegment.bmp", "CrossMarkRegion.bmp"};

[[noreturn]] void FailToKeep(const std::string& folder, const std::string& reason) {
  throw InputError(fmt::format("cannot keep diagnostics in {}: {}", folder, reason));
}

// What cannot be looked for, as a list on a drive that does not exist, counts as not written.
void KeepFile(const fs::path& from, const fs::path& to) {
  std::error_code error;
  if (fs::exists(from, error)) {
    error = CopyOver(from, to);
  } else {
    fs::remove(to, error);
  }
  if (error) FailToKeep(to.parent_path().string(), error.message());
}

}  // namespace

std::vector<std::string> DiagnosticsFolders(const std::string& folder,
                                            const std::vector<std::string>& images) {
  if (images.size() == 1) return {folder};
  std::vector<std::string> folders;
  std::set<std::string> taken;
  for (const std::string& image : images) {
    const std::string stem = fs::u8path(image).stem().string();
    std::string name = stem;
    for (int n = 2; !taken.insert(FileNameKey(name)).second; ++n)
      name = fmt::format("{}-{}", stem, n);
    folders.push_back((fs::u8path(folder) / fs::u8path(name)).string());
  }
  return folders;
}

void PrepareDiagnosticsFolder(const std::string& folder) {
  std::error_code error;
  fs::create_directories(fs::u8path(folder), error);
  if (error) FailToKeep(folder, error.message());
  RequireWritable((fs::u8path(folder) / kPictures[0]).string());
}

void KeepDiagnostics(const std::string& directory, const std::string& folder) {
  for (const char* name : kPictures) {
    KeepFile(fs::u8path(directory) / name, fs::u8path(folder) / name);
  }
  for (const char* name : kListFiles) {
    KeepFile(ListFolder(directory) / name, fs::u8path(folder) / name);
  }
}

}  // namespace quorvex::tools
