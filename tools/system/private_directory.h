// A temporary directory that is removed with everything in it, by the next run where this one is
// killed, and what stands in its way.
#ifndef QUORVEX_TOOLS_SYSTEM_PRIVATE_DIRECTORY_H_
#define QUORVEX_TOOLS_SYSTEM_PRIVATE_DIRECTORY_H_

#include <filesystem>
#include <memory>
#include <string>

#include "tools/system/directory_owner.h"

namespace quorvex::tools {

class PrivateDirectory {
 public:
  PrivateDirectory();  // throws std::runtime_error
  PrivateDirectory(const PrivateDirectory&) = delete;
  PrivateDirectory& operator=(const PrivateDirectory&) = delete;
  ~PrivateDirectory();

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;  // absolute
  std::unique_ptr<DirectoryOwner> owner_;
};

// Removes the private directories of runs that were killed.
void RemoveDirectoriesOfKilledRuns();

// Where private directories are made; absolute. Throws std::runtime_error that names it and the
// variable that chooses it.
std::filesystem::path FolderForTemporaryFiles();

// One sentence, without a full stop, that names the folder and says that its disk is full; empty
// while there is room, and where the system does not tell.
std::string DescribeShortage(const std::filesystem::path& folder);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_SYSTEM_PRIVATE_DIRECTORY_H_
