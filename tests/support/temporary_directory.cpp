#include "tests/support/temporary_directory.h"

#include <system_error>

namespace quorvex::tests {

TemporaryDirectory::TemporaryDirectory() : previous_(std::filesystem::current_path()) {
  std::filesystem::current_path(folder_.Root());
}

TemporaryDirectory::~TemporaryDirectory() {
  std::error_code ignored;
  std::filesystem::current_path(previous_, ignored);
}

}  // namespace quorvex::tests
