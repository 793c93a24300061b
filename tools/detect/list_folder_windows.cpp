#include <system_error>

#include "tools/detect/list_folder.h"

namespace quorvex::tools {

std::filesystem::path ListFolder(const std::filesystem::path&) { return "D:/"; }

bool IsListFolderShared() { return true; }

void PrepareListFolder(const std::filesystem::path& directory) {
  for (const char* name : kListFiles) {
    std::error_code ignored;
    std::filesystem::remove(ListFolder(directory) / name, ignored);
  }
}

}  // namespace quorvex::tools
