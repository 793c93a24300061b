#include "tools/system/system_files.h"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <string>

namespace quorvex::tools {

std::FILE* CreateNewFile(const std::filesystem::path& path) {
  return std::fopen(path.c_str(), "wbxe");
}

std::FILE* OpenScratchFile() {
  std::error_code error;
  std::string name = (std::filesystem::temp_directory_path(error) / "quorvex-XXXXXX").string();
  const int descriptor = mkostemp(name.data(), O_CLOEXEC);
  if (descriptor < 0) {
    return nullptr;
  }
  unlink(name.c_str());
  return fdopen(descriptor, "w+b");
}

std::filesystem::path FileNameKey(const std::filesystem::path& name) { return name; }

void PassStandardStreamsUnchanged() {}  // they always do

}  // namespace quorvex::tools
