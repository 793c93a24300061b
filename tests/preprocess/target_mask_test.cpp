#include "preprocess/target_mask.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"

namespace quorvex::tests {
namespace {

Bytes BytesOf(const GrayImage& image) { return Bytes(image.Data(), image.Data() + image.Size()); }

const Bytes kWorking = {0, 1, 50, 128, 255, 0, 127, 0};

TEST(TargetMask, IsWhiteExactlyWhereTheWorkingImageIsZero) {
  const GrayImage mask = MakeTargetMask(GrayImage(kWorking.data(), 4, 2));
  EXPECT_EQ(mask.Width(), 4);
  EXPECT_EQ(mask.Height(), 2);
  EXPECT_EQ(BytesOf(mask), (Bytes{255, 0, 0, 0, 0, 255, 0, 255}));
}

TEST(TargetRegion, KeepsTheInputExactlyWhereTheWorkingImageIsZero) {
  const Bytes input = {11, 12, 13, 14, 15, 0, 17, 255};
  const GrayImage region = MakeTargetRegion(input.data(), GrayImage(kWorking.data(), 4, 2));
  EXPECT_EQ(region.Width(), 4);
  EXPECT_EQ(region.Height(), 2);
  EXPECT_EQ(BytesOf(region), (Bytes{11, 0, 0, 0, 0, 0, 0, 255}));
}

}  // namespace
}  // namespace quorvex::tests
