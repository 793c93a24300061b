// The linker sends the library's calls of LocalAlloc, GlobalAlloc and WriteFile, which go through
// pointers that the loader fills in, through the __wrap_ pointers here (see
// tests/support/CMakeLists.txt); __real_ are the loader's.
#include "platform/mfc.h"
#include "tests/support/fault_count.h"

using quorvex::tests::Fault;
using quorvex::tests::IsCallToFail;

extern "C" {

using AllocFunction = HGLOBAL WINAPI(UINT flags, SIZE_T size);
using WriteFunction = BOOL WINAPI(HANDLE file, LPCVOID buffer, DWORD count, LPDWORD written,
                                  LPOVERLAPPED overlapped);

extern AllocFunction* __real___imp_LocalAlloc;
extern AllocFunction* __real___imp_GlobalAlloc;
extern WriteFunction* __real___imp_WriteFile;

static HLOCAL WINAPI LocalAllocOrFail(UINT flags, SIZE_T size) {
  return IsCallToFail(Fault::kLocalAlloc) ? nullptr : __real___imp_LocalAlloc(flags, size);
}

static HGLOBAL WINAPI GlobalAllocOrFail(UINT flags, SIZE_T size) {
  return IsCallToFail(Fault::kGlobalAlloc) ? nullptr : __real___imp_GlobalAlloc(flags, size);
}

// A full disk, in the form that is easily overlooked: success, with fewer bytes.
static BOOL WINAPI WriteFileOrStopShort(HANDLE file, LPCVOID buffer, DWORD count, LPDWORD written,
                                        LPOVERLAPPED overlapped) {
  if (IsCallToFail(Fault::kWrite)) {
    *written = 0;
    return TRUE;
  }
  return __real___imp_WriteFile(file, buffer, count, written, overlapped);
}

AllocFunction* __wrap___imp_LocalAlloc = LocalAllocOrFail;
AllocFunction* __wrap___imp_GlobalAlloc = GlobalAllocOrFail;
WriteFunction* __wrap___imp_WriteFile = WriteFileOrStopShort;

}  // extern "C"
