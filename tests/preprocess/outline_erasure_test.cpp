#include "preprocess/outline_erasure.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/gray_image.h"

namespace quorvex::tests {
namespace {

constexpr int kWidth = 48;
constexpr int kHeight = 44;

struct Box {
  int left;
  int right;  // inclusive, as bottom
  int top;
  int bottom;
};

constexpr Box kNone = {0, -1, 0, -1};

// Erases around one point and expects exactly the box to be 0.
void ExpectErased(PixelPosition point, const Box& box) {
  GrayImage image(kWidth, kHeight);
  image.Fill(200);
  OutlineList outline = {point};
  EXPECT_TRUE(EraseOutlineEdges(image.Data(), kWidth, kHeight, outline));
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      const bool isErased = x >= box.left && x <= box.right && y >= box.top && y <= box.bottom;
      ASSERT_EQ(image.Data()[PixelOffset(x, y, kWidth)], isErased ? 0 : 200) << x << ", " << y;
    }
  }
}

TEST(OutlineErasure, SquareReachesOnePixelFurtherTowardsSmallerCoordinates) {
  ExpectErased({20, 21}, {10, 29, 11, 30});
}

TEST(OutlineErasure, CornerPointsClearWhatLiesInside) {
  ExpectErased({0, 0}, {0, 9, 0, 9});
  ExpectErased({kWidth - 1, 0}, {kWidth - 11, kWidth - 1, 0, 9});
  ExpectErased({0, kHeight - 1}, {0, 9, kHeight - 11, kHeight - 1});
  ExpectErased({kWidth - 1, kHeight - 1}, {kWidth - 11, kWidth - 1, kHeight - 11, kHeight - 1});
}

TEST(OutlineErasure, PointsOutsideClearTheirShareOfTheImage) {
  ExpectErased({-9, 20}, {0, 0, 10, 29});
  ExpectErased({kWidth + 9, 20}, {kWidth - 1, kWidth - 1, 10, 29});
  ExpectErased({20, -9}, {10, 29, 0, 0});
  ExpectErased({20, kHeight + 9}, {10, 29, kHeight - 1, kHeight - 1});
}

TEST(OutlineErasure, PointsTooFarOutsideClearNothing) {
  constexpr int kLowest = std::numeric_limits<int>::min();
  constexpr int kHighest = std::numeric_limits<int>::max();
  ExpectErased({-10, 20}, kNone);
  ExpectErased({kWidth + 10, 20}, kNone);
  ExpectErased({20, -10}, kNone);
  ExpectErased({20, kHeight + 10}, kNone);
  ExpectErased({kLowest, kLowest}, kNone);
  ExpectErased({kHighest, kHighest}, kNone);
  ExpectErased({kLowest, 20}, kNone);
}

TEST(OutlineErasure, EveryPointOfTheListClears) {
  GrayImage image(kWidth, kHeight);
  image.Fill(200);
  OutlineList outline = {{10, 10}, {kWidth, 10}, {10, kHeight}, {kWidth, kHeight}};
  EXPECT_TRUE(EraseOutlineEdges(image.Data(), kWidth, kHeight, outline));
  EXPECT_EQ(image.Data()[PixelOffset(0, 0, kWidth)], 0);
  EXPECT_EQ(image.Data()[PixelOffset(kWidth - 1, 0, kWidth)], 0);
  EXPECT_EQ(image.Data()[PixelOffset(0, kHeight - 1, kWidth)], 0);
  EXPECT_EQ(image.Data()[PixelOffset(kWidth - 1, kHeight - 1, kWidth)], 0);
  EXPECT_EQ(image.Data()[PixelOffset(20, 20, kWidth)], 200);
}

TEST(OutlineErasure, ListIsLeftEmptyWithoutStorage) {
  GrayImage image(kWidth, kHeight);
  OutlineList outline(1000, PixelPosition{5, 5});
  EXPECT_TRUE(EraseOutlineEdges(image.Data(), kWidth, kHeight, outline));
  EXPECT_TRUE(outline.empty());
  EXPECT_EQ(outline.capacity(), 0u);
}

TEST(OutlineErasure, EmptyListLeavesTheImage) {
  GrayImage image(kWidth, kHeight);
  image.Fill(200);
  OutlineList outline;
  EXPECT_TRUE(EraseOutlineEdges(image.Data(), kWidth, kHeight, outline));
  EXPECT_EQ(image.Data()[0], 200);
}

}  // namespace
}  // namespace quorvex::tests
