#include "tools/detect/list_folder.h"

#include <system_error>

namespace quorvex::tools {

std::filesystem::path ListFolder(const std::string& directory) {
  return std::filesystem::u8path(directory) / "D:";
}

bool IsListFolderShared() { return false; }

void PrepareListFolder(const std::string& directory) {
  std::error_code noLists;
  std::filesystem::create_directory(ListFolder(directory), noLists);
}

}  // namespace quorvex::tools
