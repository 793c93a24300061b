#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "imageio/diagnostic_list.h"
#include "imageio/diagnostic_place.h"

namespace quorvex {
namespace {

constexpr mode_t kNewListMode = 0666;  // before the process's mask

// Emptied only once it is held, so that nobody's list is cut.
bool HoldAndEmpty(int descriptor) {
  struct stat status;
  if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
    return false;
  }
  // Some file systems have no locks; only a lock that somebody else holds is in the way.
  if (flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    return false;
  }
  return ftruncate(descriptor, 0) == 0;
}

}  // namespace

std::FILE* OpenDiagnosticList(const char* name) {
  const char* const place = PlaceOfDiagnostic(name);
  if (place == nullptr) {
    return nullptr;
  }
  // O_NONBLOCK: a named pipe in the list's place has perhaps no reader.
  const int descriptor =
      ::open(place, O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, kNewListMode);
  if (descriptor < 0) {
    return nullptr;
  }
  std::FILE* const file = HoldAndEmpty(descriptor) ? ::fdopen(descriptor, "w") : nullptr;
  if (file == nullptr) {
    ::close(descriptor);
  }
  return file;
}

}  // namespace quorvex
