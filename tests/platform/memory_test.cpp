// The local and the global heap have the same rules; each test runs for both.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

#include "platform/mfc.h"

// AddressSanitizer's allocator ends the program on a huge request unless it is told to refuse it.
extern "C" const char* __asan_default_options() { return "allocator_may_return_null=1"; }

namespace {

struct LocalHeap {
  using Handle = HLOCAL;
  static constexpr UINT kMoveable = LMEM_MOVEABLE;
  static constexpr UINT kMoveableZeroed = LHND;
  static Handle Alloc(UINT flags, SIZE_T size) { return LocalAlloc(flags, size); }
  static LPVOID Lock(Handle handle) { return LocalLock(handle); }
  static BOOL Unlock(Handle handle) { return LocalUnlock(handle); }
  static Handle Free(Handle handle) { return LocalFree(handle); }
};

struct GlobalHeap {
  using Handle = HGLOBAL;
  static constexpr UINT kMoveable = GMEM_MOVEABLE;
  static constexpr UINT kMoveableZeroed = GHND;
  static Handle Alloc(UINT flags, SIZE_T size) { return GlobalAlloc(flags, size); }
  static LPVOID Lock(Handle handle) { return GlobalLock(handle); }
  static BOOL Unlock(Handle handle) { return GlobalUnlock(handle); }
  static Handle Free(Handle handle) { return GlobalFree(handle); }
};

template <typename Heap>
class MemoryTest : public testing::Test {};

using Heaps = testing::Types<LocalHeap, GlobalHeap>;
TYPED_TEST_SUITE(MemoryTest, Heaps);

TYPED_TEST(MemoryTest, LockHandsOutAnAddressThatIsNotTheHandle) {
  const auto handle = TypeParam::Alloc(TypeParam::kMoveableZeroed, 16);
  ASSERT_NE(handle, nullptr);
  void* address = TypeParam::Lock(handle);
  ASSERT_NE(address, nullptr);
  EXPECT_NE(address, static_cast<void*>(handle));
  TypeParam::Unlock(handle);
  TypeParam::Free(handle);
}

TYPED_TEST(MemoryTest, EveryLockHandsOutTheSameAddress) {
  const auto handle = TypeParam::Alloc(TypeParam::kMoveableZeroed, 16);
  ASSERT_NE(handle, nullptr);
  void* address = TypeParam::Lock(handle);
  EXPECT_EQ(TypeParam::Lock(handle), address);
  TypeParam::Free(handle);
}

TYPED_TEST(MemoryTest, MemoryIsAlignedForEveryType) {
  const auto handle = TypeParam::Alloc(TypeParam::kMoveable, 1);
  ASSERT_NE(handle, nullptr);
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(TypeParam::Lock(handle)) % alignof(std::max_align_t),
            0u);
  TypeParam::Free(handle);
}

TYPED_TEST(MemoryTest, MemoryIsZeroFilledAlsoWhereItWasUsedBefore) {
  constexpr SIZE_T kSize = 1000;
  for (int round = 0; round < 3; ++round) {
    const auto handle = TypeParam::Alloc(TypeParam::kMoveableZeroed, kSize);
    ASSERT_NE(handle, nullptr);
    auto* bytes = static_cast<unsigned char*>(TypeParam::Lock(handle));
    EXPECT_EQ(std::count(bytes, bytes + kSize, 0), static_cast<std::ptrdiff_t>(kSize));
    std::memset(bytes, 0xA5, kSize);
    TypeParam::Unlock(handle);
    TypeParam::Free(handle);
  }
}

TYPED_TEST(MemoryTest, UnlockIsTrueUntilTheLastLockIsReleased) {
  const auto handle = TypeParam::Alloc(TypeParam::kMoveableZeroed, 16);
  ASSERT_NE(handle, nullptr);
  TypeParam::Lock(handle);
  TypeParam::Lock(handle);
  EXPECT_TRUE(TypeParam::Unlock(handle));
  EXPECT_FALSE(TypeParam::Unlock(handle));
  TypeParam::Free(handle);
}

TYPED_TEST(MemoryTest, UnlockWithoutALockIsFalseAndCountsNothing) {
  const auto handle = TypeParam::Alloc(TypeParam::kMoveableZeroed, 16);
  ASSERT_NE(handle, nullptr);
  EXPECT_FALSE(TypeParam::Unlock(handle));
  TypeParam::Lock(handle);
  EXPECT_FALSE(TypeParam::Unlock(handle));
  TypeParam::Free(handle);
}

TYPED_TEST(MemoryTest, FreeReturnsNull) {
  EXPECT_EQ(TypeParam::Free(TypeParam::Alloc(TypeParam::kMoveableZeroed, 16)), nullptr);
}

TYPED_TEST(MemoryTest, NullHandlesAreHarmless) {
  EXPECT_EQ(TypeParam::Lock(nullptr), nullptr);
  EXPECT_FALSE(TypeParam::Unlock(nullptr));
  EXPECT_EQ(TypeParam::Free(nullptr), nullptr);
}

TYPED_TEST(MemoryTest, RequestsThatCannotBeMetGiveNull) {
  constexpr SIZE_T kLargest = std::numeric_limits<SIZE_T>::max();
  for (const SIZE_T size : {kLargest, kLargest - 1, kLargest - 64, kLargest / 2}) {
    EXPECT_EQ(TypeParam::Alloc(TypeParam::kMoveableZeroed, size), nullptr) << size;
    EXPECT_EQ(TypeParam::Alloc(TypeParam::kMoveable, size), nullptr) << size;
  }
}

TEST(Memory, FlagsHaveTheValuesOfTheSystem) {
  EXPECT_EQ(LHND, 0x42u);
  EXPECT_EQ(GHND, 0x42u);
}

}  // namespace
