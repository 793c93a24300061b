#include "tools/detect/list_folder.h"

#include <system_error>

namespace quorvex::tools {

std::filesystem::path ListFolder(const std::filesystem::path& directory) {
  return directory / "D:";
}

bool IsListFolderShared() { return false; }

void PrepareListFolder(const std::filesystem::path& directory) {
  std::error_code noLists;
  std::filesystem::create_directory(ListFolder(directory), noLists);
}

}  // namespace quorvex::tools
