#include "base/local_buffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "tests/support/faults.h"

// AddressSanitizer's allocator ends the program on a huge request unless it is told to refuse it.
extern "C" const char* __asan_default_options() { return "allocator_may_return_null=1"; }

namespace quorvex::tests {
namespace {

TEST(LocalBuffer, IsZeroFilled) {
  LocalBuffer buffer(100);
  ASSERT_TRUE(buffer.IsValid());
  EXPECT_EQ(std::count(buffer.Data(), buffer.Data() + 100, 0), 100);
}

TEST(LocalBuffer, IsInvalidWhereTheHeapRefuses) {
  const FailNth fault(Fault::kLocalAlloc, 1);
  LocalBuffer buffer(100);
  EXPECT_FALSE(buffer.IsValid());
  EXPECT_EQ(buffer.Data(), nullptr);
}

TEST(LocalBuffer, IsInvalidForASizeThatCannotBeHad) {
  EXPECT_FALSE(LocalBuffer(std::numeric_limits<std::size_t>::max()).IsValid());
}

TEST(LocalBuffer, ConstantBufferSharesItsData) {
  LocalBuffer buffer(1);
  buffer.Data()[0] = 9;
  const LocalBuffer& constant = buffer;
  EXPECT_EQ(constant.Data()[0], 9);
}

}  // namespace
}  // namespace quorvex::tests
