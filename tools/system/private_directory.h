// A temporary directory that is removed with everything in it.
#ifndef QUORVEX_TOOLS_SYSTEM_PRIVATE_DIRECTORY_H_
#define QUORVEX_TOOLS_SYSTEM_PRIVATE_DIRECTORY_H_

#include <filesystem>
#include <system_error>

#include "tools/system/worker_process.h"

namespace quorvex::tools {

class PrivateDirectory {
 public:
  PrivateDirectory() : path_(MakePrivateDirectory()) {}
  PrivateDirectory(const PrivateDirectory&) = delete;
  PrivateDirectory& operator=(const PrivateDirectory&) = delete;
  ~PrivateDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;  // absolute
};

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_SYSTEM_PRIVATE_DIRECTORY_H_
