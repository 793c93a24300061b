#include "tests/faults/failing_memory.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace quorvex::tests {
namespace {

// Atomic, since tests of shared folders have threads.
std::atomic<int> callsUntilFault{-1};  // below 0 when none is to fail
std::atomic<Asked> failed{Asked::kNothing};
std::atomic<int> allocations{0};
std::atomic<int> held{0};

bool IsToFail(Asked asked) {
  ++allocations;
  if (callsUntilFault < 0 || callsUntilFault-- > 0) {
    return false;
  }
  failed = asked;
  return true;
}

void* Held(void* block) {
  if (block != nullptr) {
    ++held;
  }
  return block;
}

void Release(const void* block) {
  if (block != nullptr) {
    --held;
  }
}

}  // namespace

FailNthAllocation::FailNthAllocation(int n) {
  failed = Asked::kNothing;
  callsUntilFault = n - 1;
}

FailNthAllocation::~FailNthAllocation() { callsUntilFault = -1; }

Asked FailNthAllocation::Failed() const { return failed; }

int AllocationCount() { return allocations; }

int HeldBlocks() { return held; }

}  // namespace quorvex::tests

using quorvex::tests::Asked;
using quorvex::tests::Held;
using quorvex::tests::IsToFail;
using quorvex::tests::Release;

extern "C" {
void* __real_malloc(std::size_t size);
void __real_free(void* block);
void* __real_realloc(void* block, std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);

void* __wrap_malloc(std::size_t size) {
  return IsToFail(Asked::kMalloc) ? nullptr : Held(__real_malloc(size));
}

void __wrap_free(void* block) {
  Release(block);
  __real_free(block);
}

void* __wrap_realloc(void* block, std::size_t size) {
  if (IsToFail(Asked::kMalloc)) {
    return nullptr;
  }
  void* const moved = __real_realloc(block, size);
  if (block == nullptr) {
    Held(moved);
  }
  return moved;
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
  return IsToFail(Asked::kMalloc) ? nullptr : Held(__real_calloc(count, size));
}
}

namespace {

void* New(std::size_t size, Asked asked) noexcept {
  return IsToFail(asked) ? nullptr : Held(__real_malloc(size == 0 ? 1 : size));
}

void Delete(void* block) noexcept {
  Release(block);
  __real_free(block);
}

}  // namespace

// All of them: a sanitizer has operators of its own that do not go with these.
void* operator new(std::size_t size) {
  void* const block = New(size, Asked::kNew);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  return block;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return New(size, Asked::kNewThatDoesNotThrow);
}
void* operator new[](std::size_t size) { return ::operator new(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return New(size, Asked::kNewThatDoesNotThrow);
}
void operator delete(void* block) noexcept { Delete(block); }
void operator delete(void* block, std::size_t) noexcept { Delete(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { Delete(block); }
void operator delete[](void* block) noexcept { Delete(block); }
void operator delete[](void* block, std::size_t) noexcept { Delete(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { Delete(block); }
