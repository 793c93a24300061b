#include <system_error>

#include "tools/detect/list_folder.h"

namespace quorvex::tools {

std::filesystem::path ListFolder(const std::string&) { return "D:/"; }

bool IsListFolderShared() { return true; }

void PrepareListFolder(const std::string& directory) {
  for (const char* name : kListFiles) {
    std::error_code ignored;
    std::filesystem::remove(ListFolder(directory) / name, ignored);
  }
}

}  // namespace quorvex::tools
