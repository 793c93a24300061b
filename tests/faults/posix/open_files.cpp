#include "tests/faults/open_files.h"

#include <filesystem>
#include <iterator>

namespace quorvex::tests {

int OpenFileCount() {
  const std::filesystem::directory_iterator files("/proc/self/fd");
  return static_cast<int>(std::distance(begin(files), end(files)));
}

}  // namespace quorvex::tests
