#include "tests/bindings/c/failing_new.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

int callsUntilFault = -1;  // below 0 when none is to fail
bool hasHappened = false;

}  // namespace

void* operator new(std::size_t size) {
  if (callsUntilFault >= 0 && callsUntilFault-- == 0) {
    hasHappened = true;
    throw std::bad_alloc();
  }
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace quorvex::tests {

FailNthNew::FailNthNew(int n) {
  hasHappened = false;
  callsUntilFault = n - 1;
}

FailNthNew::~FailNthNew() { callsUntilFault = -1; }

bool FailNthNew::HasHappened() const { return hasHappened; }

}  // namespace quorvex::tests
