// Found in front of the library's own header of this name: memory as any program of this
// compiler takes it.
#ifndef QUORVEX_TESTS_WINDOWS_PLAIN_HOST_ALLOCATOR_H_
#define QUORVEX_TESTS_WINDOWS_PLAIN_HOST_ALLOCATOR_H_

#include <memory>

namespace quorvex {

template <typename T>
class HostAllocator : public std::allocator<T> {
 public:
  template <typename U>
  struct rebind {
    typedef HostAllocator<U> other;
  };
};

}  // namespace quorvex

#endif  // QUORVEX_TESTS_WINDOWS_PLAIN_HOST_ALLOCATOR_H_
