// The linker sends the library's calls of GlobalAlloc to the __wrap_ function here; __real_ is the
// original.
#include "fuzz/handed_out_memory.h"

#include <utility>

namespace {

HGLOBAL lastHandle = nullptr;

}  // namespace

extern "C" {

HGLOBAL __real_GlobalAlloc(UINT flags, SIZE_T size);

HGLOBAL __wrap_GlobalAlloc(UINT flags, SIZE_T size) {
  lastHandle = __real_GlobalAlloc(flags, size);
  return lastHandle;
}

}  // extern "C"

namespace quorvex::fuzz {

HandedOutMemory::HandedOutMemory() : handle_(std::exchange(lastHandle, nullptr)) {}

}  // namespace quorvex::fuzz
