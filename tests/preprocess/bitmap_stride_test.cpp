#include "preprocess/bitmap_stride.h"

#include <gtest/gtest.h>

#include <limits>

namespace quorvex::tests {
namespace {

TEST(BitmapStride, IsTheWidthRoundedUpToFour) {
  EXPECT_EQ(BitmapStride(0), 0u);
  EXPECT_EQ(BitmapStride(1), 4u);
  EXPECT_EQ(BitmapStride(3), 4u);
  EXPECT_EQ(BitmapStride(4), 4u);
  EXPECT_EQ(BitmapStride(5), 8u);
}

TEST(BitmapStride, IsFormedIn64Bits) {
  EXPECT_EQ(BitmapStride(std::numeric_limits<int>::max()), 2147483648u);
}

}  // namespace
}  // namespace quorvex::tests
