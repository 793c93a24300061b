#include "tests/bindings/c/failing_new.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

int callsUntilFault = -1;  // below 0 when none is to fail
bool hasHappened = false;

void* AllocateOrFail(std::size_t size) {
  if (callsUntilFault >= 0 && callsUntilFault-- == 0) {
    hasHappened = true;
    return nullptr;
  }
  return std::malloc(size == 0 ? 1 : size);
}

}  // namespace

// All of them: a sanitizer has operators of its own that do not go with these.
void* operator new(std::size_t size) {
  void* const memory = AllocateOrFail(size);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return memory;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return AllocateOrFail(size);
}
void* operator new[](std::size_t size) { return ::operator new(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return AllocateOrFail(size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }

namespace quorvex::tests {

FailNthNew::FailNthNew(int n) {
  hasHappened = false;
  callsUntilFault = n - 1;
}

FailNthNew::~FailNthNew() { callsUntilFault = -1; }

bool FailNthNew::HasHappened() const { return hasHappened; }

}  // namespace quorvex::tests
