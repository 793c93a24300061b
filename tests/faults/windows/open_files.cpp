#include "tests/faults/open_files.h"

#include <windows.h>

namespace quorvex::tests {

int OpenFileCount() {
  DWORD count = 0;
  GetProcessHandleCount(GetCurrentProcess(), &count);
  return static_cast<int>(count);
}

}  // namespace quorvex::tests
