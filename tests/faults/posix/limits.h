// Limits of the system for this process, until the object ends.
#ifndef QUORVEX_TESTS_FAULTS_POSIX_LIMITS_H_
#define QUORVEX_TESTS_FAULTS_POSIX_LIMITS_H_

#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

namespace quorvex::tests {

// The process's own limit of `resource`, which root has, too.
class Limit {
 public:
  Limit(__rlimit_resource resource, rlim_t most) : resource_(resource) {
    getrlimit(resource_, &before_);
    const struct rlimit limit = {most, before_.rlim_max};
    setrlimit(resource_, &limit);
  }
  ~Limit() { setrlimit(resource_, &before_); }
  Limit(const Limit&) = delete;
  Limit& operator=(const Limit&) = delete;

 private:
  __rlimit_resource resource_;
  struct rlimit before_ = {};
};

// Files end at `bytes`. The signal that would end the process is ignored, as a host may do.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes)
      : handler_(signal(SIGXFSZ, SIG_IGN)), limit_(RLIMIT_FSIZE, bytes) {}
  ~FileSizeLimit() { signal(SIGXFSZ, handler_); }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  void (*handler_)(int);
  Limit limit_;
};

// No file can be opened.
class NoDescriptors {
 public:
  NoDescriptors() : limit_(RLIMIT_NOFILE, LowestFree()) {}

 private:
  static rlim_t LowestFree() {
    const int descriptor = dup(STDERR_FILENO);
    close(descriptor);
    return static_cast<rlim_t>(descriptor);
  }

  Limit limit_;
};

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_FAULTS_POSIX_LIMITS_H_
