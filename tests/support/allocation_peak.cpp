#include "tests/support/allocation_peak.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>

#include "tests/support/block_size.h"

namespace quorvex::tests {
namespace {

std::atomic<std::size_t> held{0};
std::atomic<std::size_t> most{0};

void* Counted(void* block) {
  if (block != nullptr) {
    const std::size_t now = held += BlockSize(block);
    std::size_t known = most;
    while (now > known && !most.compare_exchange_weak(known, now)) {
    }
  }
  return block;
}

void Discount(void* block) {
  if (block != nullptr) {
    held -= BlockSize(block);
  }
}

}  // namespace

AllocationPeak::AllocationPeak() : before_(held) { most = before_; }

std::size_t AllocationPeak::Bytes() const { return std::max<std::size_t>(most, before_) - before_; }

}  // namespace quorvex::tests

using quorvex::tests::Counted;
using quorvex::tests::Discount;

// The linker (--wrap) leads the program's calls here, and __real_ to the C library.
extern "C" {
void* __real_malloc(std::size_t size);
void __real_free(void* block);
void* __real_realloc(void* block, std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);

void* __wrap_malloc(std::size_t size) { return Counted(__real_malloc(size)); }

void __wrap_free(void* block) {
  Discount(block);
  __real_free(block);
}

void* __wrap_realloc(void* block, std::size_t size) {
  Discount(block);
  return Counted(__real_realloc(block, size));
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
  return Counted(__real_calloc(count, size));
}
}

void* operator new(std::size_t size) {
  if (void* block = std::malloc(std::max<std::size_t>(size, 1))) {
    return block;
  }
  throw std::bad_alloc();
}

// The library's sorts and partitions ask for room to work in with this form, and give it back with
// the usual delete; a sanitizer's own form would not agree with that one.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return std::malloc(std::max<std::size_t>(size, 1));
}

void operator delete(void* block) noexcept { std::free(block); }

void operator delete(void* block, std::size_t) noexcept { std::free(block); }
