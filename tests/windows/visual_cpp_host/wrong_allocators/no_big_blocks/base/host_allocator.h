// Found in front of the library's own header of this name: the host's heap, without the rule of big
// blocks.
#ifndef QUORVEX_TESTS_WINDOWS_NO_BIG_BLOCKS_HOST_ALLOCATOR_H_
#define QUORVEX_TESTS_WINDOWS_NO_BIG_BLOCKS_HOST_ALLOCATOR_H_

#include <windows.h>

#include <cstddef>

namespace quorvex {

template <typename T>
class HostAllocator {
 public:
  typedef T value_type;

  HostAllocator() = default;
  template <typename U>
  HostAllocator(const HostAllocator<U>&) noexcept {}

  T* allocate(std::size_t count) {
    return static_cast<T*>(Find<void*(std::size_t)>("malloc")(count * sizeof(T)));
  }
  void deallocate(T* block, std::size_t) { Find<void(void*)>("free")(block); }

 private:
  template <typename Function>
  static Function* Find(const char* name) {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(LoadLibraryW(L"ucrtbase.dll"), name)));
  }
};

template <typename T, typename U>
bool operator==(const HostAllocator<T>&, const HostAllocator<U>&) {
  return true;
}

template <typename T, typename U>
bool operator!=(const HostAllocator<T>&, const HostAllocator<U>&) {
  return false;
}

}  // namespace quorvex

#endif  // QUORVEX_TESTS_WINDOWS_NO_BIG_BLOCKS_HOST_ALLOCATOR_H_
