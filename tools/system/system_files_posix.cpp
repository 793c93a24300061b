#include "tools/system/system_files.h"

#include <unistd.h>

#include <cstdlib>
#include <string>

namespace quorvex::tools {

std::FILE* CreateNewFile(const std::filesystem::path& path) {
  return std::fopen(path.c_str(), "wbx");
}

std::FILE* OpenScratchFile() {
  std::error_code error;
  std::string name = (std::filesystem::temp_directory_path(error) / "quorvex-XXXXXX").string();
  const int descriptor = mkstemp(name.data());
  if (descriptor < 0) {
    return nullptr;
  }
  unlink(name.c_str());
  return fdopen(descriptor, "w+b");
}

std::filesystem::path FileNameKey(const std::filesystem::path& name) { return name; }

std::error_code CopyOver(const std::filesystem::path& from, const std::filesystem::path& to) {
  std::error_code error;
  std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing, error);
  return error;
}

void PassStandardStreamsUnchanged() {}  // they always do

}  // namespace quorvex::tools
