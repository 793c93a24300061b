// The linker sends the library's calls of LocalAlloc, GlobalAlloc and write to the __wrap_
// functions here (see tests/support/CMakeLists.txt); __real_ are the originals.
#include "tests/support/faults.h"

#include <sys/types.h>

#include <cerrno>
#include <cstddef>

#include "platform/mfc.h"

namespace {

// Calls that still succeed before the one that fails; below 0 when none is to fail.
int callsUntilFault[3] = {-1, -1, -1};
bool hasHappened[3] = {};

bool IsFaulty(quorvex::testing::Fault fault) {
  int& calls = callsUntilFault[static_cast<int>(fault)];
  if (calls < 0) {
    return false;
  }
  if (calls-- > 0) {
    return false;
  }
  hasHappened[static_cast<int>(fault)] = true;
  return true;
}

}  // namespace

extern "C" {

HLOCAL __real_LocalAlloc(UINT flags, SIZE_T size);
HGLOBAL __real_GlobalAlloc(UINT flags, SIZE_T size);
ssize_t __real_write(int descriptor, const void* buffer, size_t count);

HLOCAL __wrap_LocalAlloc(UINT flags, SIZE_T size) {
  return IsFaulty(quorvex::testing::Fault::kLocalAlloc) ? nullptr : __real_LocalAlloc(flags, size);
}

HGLOBAL __wrap_GlobalAlloc(UINT flags, SIZE_T size) {
  return IsFaulty(quorvex::testing::Fault::kGlobalAlloc) ? nullptr
                                                         : __real_GlobalAlloc(flags, size);
}

ssize_t __wrap_write(int descriptor, const void* buffer, size_t count) {
  if (IsFaulty(quorvex::testing::Fault::kWrite)) {
    errno = ENOSPC;
    return -1;
  }
  return __real_write(descriptor, buffer, count);
}

}  // extern "C"

namespace quorvex::testing {

FailNth::FailNth(Fault fault, int n) : fault_(fault) {
  callsUntilFault[static_cast<int>(fault)] = n - 1;
  hasHappened[static_cast<int>(fault)] = false;
}

FailNth::~FailNth() { callsUntilFault[static_cast<int>(fault_)] = -1; }

bool FailNth::HasHappened() const { return hasHappened[static_cast<int>(fault_)]; }

}  // namespace quorvex::testing
