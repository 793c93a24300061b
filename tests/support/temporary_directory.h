// A fresh current directory for tests that write files, removed with all that is in it.
#ifndef QUORVEX_TESTS_SUPPORT_TEMPORARY_DIRECTORY_H_
#define QUORVEX_TESTS_SUPPORT_TEMPORARY_DIRECTORY_H_

#include <filesystem>

#include "tests/support/temporary_folder.h"

namespace quorvex::tests {

class TemporaryDirectory {
 public:
  TemporaryDirectory();   // makes the folder and changes into it
  ~TemporaryDirectory();  // changes back
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  const std::filesystem::path& Path() const { return folder_.Root(); }

 private:
  TemporaryFolder folder_;
  std::filesystem::path previous_;
};

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_TEMPORARY_DIRECTORY_H_
