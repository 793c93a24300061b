// A fresh current directory for tests that write files, removed with all that is in it.
#ifndef QUORVEX_TESTS_SUPPORT_TEMPORARY_DIRECTORY_H_
#define QUORVEX_TESTS_SUPPORT_TEMPORARY_DIRECTORY_H_

#include <filesystem>

namespace quorvex::tests {

class TemporaryDirectory {
 public:
  TemporaryDirectory();   // makes the directory and changes into it
  ~TemporaryDirectory();  // changes back
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path previous_;
  std::filesystem::path path_;
};

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_TEMPORARY_DIRECTORY_H_
