#include "tests/support/temporary_directory.h"

#include <random>
#include <string>
#include <system_error>

namespace quorvex::tests {

namespace fs = std::filesystem;

TemporaryDirectory::TemporaryDirectory() : previous_(fs::current_path()) {
  std::random_device random;
  do {
    path_ = fs::temp_directory_path() / ("quorvex-test-" + std::to_string(random()));
  } while (!fs::create_directory(path_));
  fs::current_path(path_);
}

TemporaryDirectory::~TemporaryDirectory() {
  std::error_code ignored;
  fs::current_path(previous_, ignored);
  // Windows removes no read-only file.
  for (fs::directory_iterator entry(path_, ignored), end; entry != end; entry.increment(ignored)) {
    if (entry->is_regular_file(ignored) && !entry->is_symlink(ignored)) {
      fs::permissions(entry->path(), fs::perms::owner_write, fs::perm_options::add, ignored);
    }
  }
  fs::remove_all(path_, ignored);
}

}  // namespace quorvex::tests
