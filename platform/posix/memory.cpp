// Moveable memory blocks: a handle owns its block, the lock hands out the address.

#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>

#include "platform/win32_subset.h"

// The block follows its bookkeeping in one allocation; the size keeps it aligned for every type.
struct alignas(std::max_align_t) LocalHandle {
  unsigned lockCount;
};

struct alignas(std::max_align_t) GlobalHandle {
  unsigned lockCount;
};

namespace {

template <typename Handle>
Handle* Allocate(UINT flags, SIZE_T size) {
  if (size > std::numeric_limits<SIZE_T>::max() - sizeof(Handle)) {
    return nullptr;
  }
  const SIZE_T bytes = sizeof(Handle) + size;
  void* memory = (flags & LMEM_ZEROINIT) != 0 ? std::calloc(bytes, 1) : std::malloc(bytes);
  return memory != nullptr ? new (memory) Handle{0} : nullptr;
}

template <typename Handle>
LPVOID Lock(Handle* handle) {
  if (handle == nullptr) {
    return nullptr;
  }
  ++handle->lockCount;
  return handle + 1;
}

template <typename Handle>
BOOL Unlock(Handle* handle) {
  if (handle == nullptr || handle->lockCount == 0) {
    return FALSE;
  }
  --handle->lockCount;
  return handle->lockCount != 0 ? TRUE : FALSE;
}

template <typename Handle>
Handle* Free(Handle* handle) {
  std::free(handle);
  return nullptr;
}

}  // namespace

HLOCAL LocalAlloc(UINT flags, SIZE_T size) { return Allocate<LocalHandle>(flags, size); }
LPVOID LocalLock(HLOCAL handle) { return Lock(handle); }
BOOL LocalUnlock(HLOCAL handle) { return Unlock(handle); }
HLOCAL LocalFree(HLOCAL handle) { return Free(handle); }

HGLOBAL GlobalAlloc(UINT flags, SIZE_T size) { return Allocate<GlobalHandle>(flags, size); }
LPVOID GlobalLock(HGLOBAL handle) { return Lock(handle); }
BOOL GlobalUnlock(HGLOBAL handle) { return Unlock(handle); }
HGLOBAL GlobalFree(HGLOBAL handle) { return Free(handle); }
