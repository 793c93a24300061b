// Memory of point lists, held against the rule of the host's runtime.
#include "base/host_allocator.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <new>
#include <thread>
#include <type_traits>
#include <vector>

#include "base/calibration_point.h"

namespace quorvex::tests {
namespace {

static_assert(sizeof(PointList) == 3 * sizeof(void*), "hosts know lists as three pointers");
static_assert(std::is_nothrow_move_constructible<PointList>::value, "");
static_assert(std::is_nothrow_move_assignable<PointList>::value, "");

// The host's runtime, found without the code under test.
template <typename Function>
Function* HostFunction(const char* name) {
  static const HMODULE runtime = LoadLibraryW(L"ucrtbase.dll");
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(runtime, name)));
}

void HostFree(void* memory) { HostFunction<void(void*)>("free")(memory); }
std::size_t HostSize(void* memory) { return HostFunction<std::size_t(void*)>("_msize")(memory); }
bool IsInHostHeap(void* memory) {
  const auto heap = reinterpret_cast<HANDLE>(HostFunction<std::intptr_t()>("_get_heap_handle")());
  return HeapValidate(heap, 0, memory) != FALSE;
}

std::uintptr_t Address(const void* memory) { return reinterpret_cast<std::uintptr_t>(memory); }

void* AddressBefore(void* block) {
  void* memory;
  std::memcpy(&memory, static_cast<char*>(block) - sizeof memory, sizeof memory);
  return memory;
}

class SmallBlockTest : public ::testing::TestWithParam<std::size_t> {};
INSTANTIATE_TEST_SUITE_P(, SmallBlockTest, ::testing::Values(1, 64, 4032, 4095));

TEST_P(SmallBlockTest, IsWhatMallocGave) {
  void* const block = AllocateHostMemory(GetParam());
  ASSERT_TRUE(IsInHostHeap(block));
  EXPECT_EQ(HostSize(block), GetParam());
  EXPECT_EQ(Address(block) % 16, 0u);
  std::memset(block, 0xAB, GetParam());
  HostFree(block);
}

class BigBlockTest : public ::testing::TestWithParam<std::size_t> {};
INSTANTIATE_TEST_SUITE_P(, BigBlockTest, ::testing::Values(4096, 4097, 6144, 1000000));

TEST_P(BigBlockTest, IsAlignedAndHasTheAddressOfMallocBeforeIt) {
  // Several at a time, since malloc's addresses lie differently towards the alignment.
  std::vector<void*> blocks;
  for (int i = 0; i < 20; ++i) {
    void* const block = AllocateHostMemory(GetParam());
    blocks.push_back(block);
    void* const memory = AddressBefore(block);
    ASSERT_TRUE(IsInHostHeap(memory));
    EXPECT_EQ(Address(block) % 32, 0u);
    const std::uintptr_t distance = Address(block) - Address(memory);
    EXPECT_GE(distance, 8u);
    EXPECT_LE(distance, 39u);
    EXPECT_GE(HostSize(memory), distance + GetParam());
    std::memset(block, 0xAB, GetParam());
    EXPECT_EQ(AddressBefore(block), memory);
  }
  for (void* const block : blocks) {
    HostFree(AddressBefore(block));
  }
}

// By the rule, with nothing of the allocator.
void* TakeAsHost(std::size_t bytes) {
  const auto allocate = HostFunction<void*(std::size_t)>("malloc");
  if (bytes < 4096) {
    return allocate(bytes);
  }
  void* const memory = allocate(bytes + 39);
  void* const block = reinterpret_cast<void*>((Address(memory) + 39) / 32 * 32);
  std::memcpy(static_cast<char*>(block) - 8, &memory, 8);
  return block;
}

TEST(FreeHostMemory, ReleasesWhatTheHostTook) {
  for (const std::size_t bytes : {1u, 4095u, 4096u, 4097u, 100000u}) {
    void* const block = TakeAsHost(bytes);
    void* const memory = bytes < 4096 ? block : AddressBefore(block);
    ASSERT_TRUE(IsInHostHeap(memory)) << bytes;
    FreeHostMemory(block, bytes);
    EXPECT_FALSE(IsInHostHeap(memory)) << bytes;
  }
}

TEST(AllocateHostMemory, HugeSizesAreAnAllocationFailure) {
  constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max();
  for (const std::size_t bytes : {kMost, kMost - 1, kMost - 38, kMost - 39, kMost / 2}) {
    EXPECT_THROW(AllocateHostMemory(bytes), std::bad_alloc) << bytes;
  }
}

TEST(HostAllocatorTest, HugeCountsAreAnAllocationFailure) {
  constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max();
  HostAllocator<CalibrationPoint> allocator;
  // The second and third would be 0 and 64 bytes in 64 bits.
  for (const std::size_t count : {kMost, kMost / 64 + 1, kMost / 64 + 2, kMost / 64}) {
    EXPECT_THROW(allocator.allocate(count), std::bad_alloc) << count;
  }
}

TEST(HostAllocatorTest, CountsInElements) {
  HostAllocator<CalibrationPoint> allocator;
  CalibrationPoint* const small = allocator.allocate(63);
  EXPECT_EQ(HostSize(small), 63 * 64u);
  allocator.deallocate(small, 63);
  EXPECT_FALSE(IsInHostHeap(small));
  CalibrationPoint* const big = allocator.allocate(64);
  void* const memory = AddressBefore(big);
  EXPECT_EQ(HostSize(memory), 64 * 64 + 39u);
  allocator.deallocate(big, 64);
  EXPECT_FALSE(IsInHostHeap(memory));
}

TEST(HostAllocatorTest, AllAreEqual) {
  const HostAllocator<CalibrationPoint> points;
  const HostAllocator<int> numbers(points);
  EXPECT_TRUE(points == numbers);
  EXPECT_FALSE(points != numbers);
}

TEST(PointListMemory, ServesManyThreadsAtOnce) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([] {
      for (int round = 0; round < 200; ++round) {
        PointList points;
        for (int count = 0; count < 200; ++count) {
          points.push_back(CalibrationPoint());
        }
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_TRUE(IsInHostHeap(nullptr));  // every block of the heap
}

}  // namespace
}  // namespace quorvex::tests
