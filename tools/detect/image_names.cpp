#include "tools/detect/image_names.h"

#include <fmt/format.h>

#include <set>

#include "tools/system/system_files.h"

namespace quorvex::tools {

std::vector<std::filesystem::path> NamesOfImages(const std::vector<std::filesystem::path>& images) {
  std::vector<std::filesystem::path> names;
  std::set<std::filesystem::path> taken;
  for (const std::filesystem::path& image : images) {
    std::filesystem::path name = image.stem();
    for (int n = 2; !taken.insert(FileNameKey(name)).second; ++n) {
      name = image.stem();
      name += fmt::format("-{}", n);
    }
    names.push_back(name);
  }
  return names;
}

}  // namespace quorvex::tools
