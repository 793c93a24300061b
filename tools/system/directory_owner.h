// The mark of a directory that is in use. A run that is killed leaves its directories behind; by
// the mark, a locked file in each of them, the next run tells them from those of runs that go on.
#ifndef QUORVEX_TOOLS_SYSTEM_DIRECTORY_OWNER_H_
#define QUORVEX_TOOLS_SYSTEM_DIRECTORY_OWNER_H_

#include <cstdint>
#include <filesystem>

namespace quorvex::tools {

// What the names of the command's directories begin with.
constexpr const char* kDirectoryPrefix = "quorvex-";

// Marks a directory until the object, or the process, ends.
class DirectoryOwner {
 public:
  explicit DirectoryOwner(const std::filesystem::path& directory);  // throws std::runtime_error
  ~DirectoryOwner() { Release(); }
  DirectoryOwner(const DirectoryOwner&) = delete;
  DirectoryOwner& operator=(const DirectoryOwner&) = delete;

  // From here on another run may remove the directory.
  void Release();

 private:
  std::intptr_t mark_;  // the system's own handle of the locked file; -1 once released
};

// Removes those directories in `folder` that bear the command's prefix and a mark that nobody
// holds. What is another user's, no directory, a link, or without a mark is left alone, and no link
// is followed. What cannot be removed stays.
void RemoveOwnerlessDirectories(const std::filesystem::path& folder);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_SYSTEM_DIRECTORY_OWNER_H_
