// The linker sends the library's calls of LocalAlloc, GlobalAlloc and write to the __wrap_
// functions here (see tests/support/CMakeLists.txt); __real_ are the originals.
#include <sys/types.h>

#include <cerrno>
#include <cstddef>

#include "platform/mfc.h"
#include "tests/support/fault_count.h"

using quorvex::tests::Fault;
using quorvex::tests::IsCallToFail;

extern "C" {

HLOCAL __real_LocalAlloc(UINT flags, SIZE_T size);
HGLOBAL __real_GlobalAlloc(UINT flags, SIZE_T size);
ssize_t __real_write(int descriptor, const void* buffer, size_t count);

HLOCAL __wrap_LocalAlloc(UINT flags, SIZE_T size) {
  return IsCallToFail(Fault::kLocalAlloc) ? nullptr : __real_LocalAlloc(flags, size);
}

HGLOBAL __wrap_GlobalAlloc(UINT flags, SIZE_T size) {
  return IsCallToFail(Fault::kGlobalAlloc) ? nullptr : __real_GlobalAlloc(flags, size);
}

ssize_t __wrap_write(int descriptor, const void* buffer, size_t count) {
  if (IsCallToFail(Fault::kWrite)) {
    errno = ENOSPC;
    return -1;
  }
  return __real_write(descriptor, buffer, count);
}

}  // extern "C"
