// The allocator of point lists in a Windows library that was not built with Visual C++.
//
// A host grows and frees its lists with its own runtime, so their memory has to come from where
// Visual C++'s release runtime (/MD, 64 bits) takes it, in the same form: malloc of the Universal C
// runtime; blocks of 4096 bytes and more are aligned to 32 bytes by hand, and the address that
// malloc gave stands in the 8 bytes before them.
#ifndef QUORVEX_BASE_HOST_ALLOCATOR_H_
#define QUORVEX_BASE_HOST_ALLOCATOR_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>

namespace quorvex {

// LoadLibraryA and GetProcAddress under names of our own: <windows.h> would bring its macros into
// every host, and a second declaration under their own names could disagree with it.
void* LoadSystemLibrary(const char* name) __asm__("LoadLibraryA");
void* FindInLibrary(void* library, const char* name) __asm__("GetProcAddress");

// malloc and free of the Universal C runtime, which stays loaded.
class UniversalRuntime {
 public:
  // Throws std::bad_alloc where the runtime is missing (before Windows 10, unless installed).
  static const UniversalRuntime& Get() {
    static const UniversalRuntime runtime;
    return runtime;
  }

  void* (*allocate)(std::size_t bytes);
  void (*release)(void* memory);

 private:
  UniversalRuntime() {
    // By its name alone: the one that the process has loaded already, if there is one.
    void* const library = LoadSystemLibrary("ucrtbase.dll");
    if (library == nullptr) {
      throw std::bad_alloc();
    }
    allocate = reinterpret_cast<void* (*)(std::size_t)>(FindInLibrary(library, "malloc"));
    release = reinterpret_cast<void (*)(void*)>(FindInLibrary(library, "free"));
    if (allocate == nullptr || release == nullptr) {
      throw std::bad_alloc();
    }
  }
};

constexpr std::size_t kHostBigBlock = 4096;  // bytes; from here on blocks are aligned by hand
constexpr std::size_t kHostBigBlockAlignment = 32;
// Room for the address before the block and for moving the block up to its alignment.
constexpr std::size_t kHostBigBlockExtra = sizeof(void*) + kHostBigBlockAlignment - 1;
static_assert(kHostBigBlockExtra == 39, "the host's runtime reckons with 39 bytes");

// Throws std::bad_alloc.
inline void* AllocateHostMemory(std::size_t bytes) {
  const bool isBig = bytes >= kHostBigBlock;
  const std::size_t wholeSize = isBig ? bytes + kHostBigBlockExtra : bytes;
  void* const memory = wholeSize < bytes ? nullptr : UniversalRuntime::Get().allocate(wholeSize);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  if (!isBig) {
    return memory;
  }
  const std::uintptr_t address = reinterpret_cast<std::uintptr_t>(memory);
  void* const block =
      reinterpret_cast<void*>((address + kHostBigBlockExtra) & ~(kHostBigBlockAlignment - 1));
  std::memcpy(static_cast<char*>(block) - sizeof memory, &memory, sizeof memory);
  return block;
}

// Takes what AllocateHostMemory, or the host, gave for the same number of bytes.
inline void FreeHostMemory(void* block, std::size_t bytes) noexcept {
  void* memory = block;
  if (bytes >= kHostBigBlock) {
    std::memcpy(&memory, static_cast<char*>(block) - sizeof memory, sizeof memory);
  }
  UniversalRuntime::Get().release(memory);
}

template <typename T>
class HostAllocator {
 public:
  typedef T value_type;

  HostAllocator() = default;
  template <typename U>
  HostAllocator(const HostAllocator<U>&) noexcept {}

  T* allocate(std::size_t count) {
    static_assert(alignof(T) <= alignof(void*) * 2, "malloc aligns to 16 bytes");
    if (count > static_cast<std::size_t>(-1) / sizeof(T)) {
      throw std::bad_alloc();
    }
    return static_cast<T*>(AllocateHostMemory(count * sizeof(T)));
  }

  void deallocate(T* block, std::size_t count) noexcept {
    FreeHostMemory(block, count * sizeof(T));
  }
};

template <typename T, typename U>
bool operator==(const HostAllocator<T>&, const HostAllocator<U>&) noexcept {
  return true;
}

template <typename T, typename U>
bool operator!=(const HostAllocator<T>&, const HostAllocator<U>&) noexcept {
  return false;
}

}  // namespace quorvex

#endif  // QUORVEX_BASE_HOST_ALLOCATOR_H_
