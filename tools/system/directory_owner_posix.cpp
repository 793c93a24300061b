#include <fcntl.h>
#include <fmt/format.h>
#include <string.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <string>
#include <system_error>

#include "tools/system/directory_owner.h"
#include "tools/system/file_name.h"

namespace quorvex::tools {
namespace {

namespace fs = std::filesystem;

constexpr const char* kMark = ".owner";
constexpr const char* kMarkBeforeItIsHeld = ".owner.new";

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) {
      close(number_);
    }
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int Number() const { return number_; }
  bool IsOpen() const { return number_ >= 0; }

 private:
  int number_;
};

bool IsOwn(const Descriptor& file, mode_t kind) {
  struct stat status;
  return file.IsOpen() && fstat(file.Number(), &status) == 0 && (status.st_mode & S_IFMT) == kind &&
         status.st_uid == geteuid();
}

// Held through its descriptor, so that whatever somebody puts under the name while this goes on,
// nothing but what was looked at is removed.
void RemoveIfOwnerless(const fs::path& path) {
  const Descriptor directory(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  if (!IsOwn(directory, S_IFDIR)) {
    return;
  }
  const Descriptor mark(
      openat(directory.Number(), kMark, O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!IsOwn(mark, S_IFREG) || flock(mark.Number(), LOCK_EX | LOCK_NB) != 0) {
    return;
  }
  std::error_code ignored;
  const fs::path held = fmt::format("/proc/self/fd/{}", directory.Number());
  for (fs::directory_iterator entry(held, ignored), end; !ignored && entry != end;
       entry.increment(ignored)) {
    std::error_code stays;
    if (entry->path().filename() != kMark) {
      fs::remove_all(entry->path(), stays);
    }
  }
  // Last, so that what is interrupted here is gone on with by the next run.
  unlinkat(directory.Number(), kMark, 0);
  rmdir(path.c_str());  // of another directory it would take an empty one only
}

}  // namespace

// Under another name until it is held: a mark that nobody holds is one of a run that is gone.
DirectoryOwner::DirectoryOwner(const fs::path& directory) : mark_(-1) {
  const fs::path before = directory / kMarkBeforeItIsHeld;
  const int mark =
      open(before.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
  mark_ = mark;
  if (mark < 0 || flock(mark, LOCK_EX | LOCK_NB) != 0 ||
      rename(before.c_str(), (directory / kMark).c_str()) != 0) {
    const int error = errno;
    Release();
    throw std::runtime_error(
        fmt::format("cannot mark the folder {}: {}", Utf8Name(directory), strerror(error)));
  }
}

void DirectoryOwner::Release() {
  if (mark_ >= 0) {
    close(static_cast<int>(mark_));
    mark_ = -1;
  }
}

void RemoveOwnerlessDirectories(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->path().filename().string().rfind(kDirectoryPrefix, 0) == 0) {
      RemoveIfOwnerless(entry->path());
    }
  }
}

}  // namespace quorvex::tools
