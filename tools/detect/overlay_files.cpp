#include "tools/detect/overlay_files.h"

#include <fmt/format.h>

#include <string>
#include <system_error>

#include "tools/detect/image_names.h"
#include "tools/errors.h"
#include "tools/system/file_name.h"
#include "tools/system/output_file.h"

namespace quorvex::tools {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPlaceOfName = "{name}";

bool IsFolder(const fs::path& target) {
  std::error_code ignored;
  return target.filename().empty() || fs::is_directory(target, ignored);
}

bool IsPattern(const std::string& target) { return target.find(kPlaceOfName) != std::string::npos; }

void RequirePngEnding(const fs::path& path) {
  if (SmallEnding(path) != ".png") {
    throw InputError(fmt::format("{} must end in .png", Utf8Name(path)));
  }
}

fs::path PutName(std::string pattern, const fs::path& name) {
  const std::string text = Utf8Name(name);
  for (std::size_t at = pattern.find(kPlaceOfName); at != std::string::npos;
       at = pattern.find(kPlaceOfName, at + text.size())) {
    pattern.replace(at, std::string(kPlaceOfName).size(), text);
  }
  return PathFromUtf8(pattern);
}

}  // namespace

std::vector<fs::path> OverlayFiles(const fs::path& target, const std::vector<fs::path>& images) {
  const std::string pattern =
      IsFolder(target) ? Utf8Name(target / fmt::format("{}.png", kPlaceOfName)) : Utf8Name(target);
  RequirePngEnding(PathFromUtf8(pattern));
  if (!IsPattern(pattern)) {
    if (images.size() == 1) {
      return {target};
    }
    throw InputError(fmt::format(
        "--overlay {} is one file for {} images; give a folder, or put {} in the file's name",
        Utf8Name(target), images.size(), kPlaceOfName));
  }
  std::vector<fs::path> files;
  for (const fs::path& name : NamesOfImages(images)) {
    files.push_back(PutName(pattern, name));
  }
  return files;
}

void PrepareOverlayFiles(const fs::path& target, const std::vector<fs::path>& files) {
  const bool makesFolders = IsFolder(target) || IsPattern(Utf8Name(target));
  for (const fs::path& file : files) {
    std::error_code error;
    if (makesFolders && file.has_parent_path()) {
      fs::create_directories(file.parent_path(), error);
    }
    if (error) {
      throw InputError(fmt::format("cannot make the folder {} for overlays: {}",
                                   Utf8Name(file.parent_path()), error.message()));
    }
    RequireWritable(file);
  }
}

}  // namespace quorvex::tools
