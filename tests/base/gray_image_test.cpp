#include "base/gray_image.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quorvex::tests {
namespace {

TEST(PixelOffset, CountsRowsWithoutGaps) {
  EXPECT_EQ(PixelOffset(0, 0, 10), 0u);
  EXPECT_EQ(PixelOffset(3, 2, 10), 23u);
}

TEST(PixelOffset, IsFormedIn64Bits) {
  EXPECT_EQ(PixelOffset(1, 100'000, 100'000), 10'000'000'001u);
}

TEST(IsInside, HoldsFromZeroToTheSize) {
  EXPECT_TRUE(IsInside(0, 0, 4, 3));
  EXPECT_TRUE(IsInside(3, 2, 4, 3));
  EXPECT_FALSE(IsInside(4, 2, 4, 3));
  EXPECT_FALSE(IsInside(3, 3, 4, 3));
  EXPECT_FALSE(IsInside(-1, 0, 4, 3));
  EXPECT_FALSE(IsInside(0, -1, 4, 3));
}

TEST(GrayImage, StartsBlack) {
  const GrayImage image(3, 2);
  EXPECT_EQ(image.Width(), 3);
  EXPECT_EQ(image.Height(), 2);
  ASSERT_EQ(image.Size(), 6u);
  EXPECT_EQ(std::count(image.Data(), image.Data() + 6, 0), 6);
}

TEST(GrayImage, CopiesItsSource) {
  unsigned char source[6] = {1, 2, 3, 4, 5, 6};
  const GrayImage image(source, 3, 2);
  source[5] = 99;
  EXPECT_EQ(image.Size(), 6u);
  EXPECT_EQ(image.Data()[0], 1);
  EXPECT_EQ(image.Data()[5], 6);
}

TEST(GrayImage, FillSetsEveryPixel) {
  GrayImage image(3, 2);
  image.Fill(50);
  EXPECT_EQ(std::count(image.Data(), image.Data() + 6, 50), 6);
}

TEST(GrayImage, CopiesDoNotShareTheirPixels) {
  GrayImage image(3, 2);
  const GrayImage copy = image;
  image.Fill(50);
  EXPECT_EQ(copy.Data()[0], 0);
}

TEST(GrayView, ReadsThePixelsOfAnotherImage) {
  GrayImage image(3, 2);
  image.Data()[PixelOffset(2, 1, 3)] = 7;
  const GrayView view{image.Data(), image.Width(), image.Height()};
  EXPECT_EQ(view.At(2, 1), 7);
  EXPECT_EQ(view.At(1, 1), 0);
  EXPECT_TRUE(view.Holds(2, 1));
  EXPECT_FALSE(view.Holds(3, 1));
  EXPECT_FALSE(view.Holds(2, 2));
  EXPECT_FALSE(view.Holds(-1, 0));
}

TEST(GrayImage, MayBeWithoutPixels) {
  EXPECT_EQ(GrayImage().Size(), 0u);
  EXPECT_EQ(GrayImage(0, 5).Size(), 0u);
  EXPECT_EQ(GrayImage(5, 0).Size(), 0u);
}

}  // namespace
}  // namespace quorvex::tests
