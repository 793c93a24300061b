#include "preprocess/outline_drawing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/text_image.h"

namespace quorvex::tests {
namespace {

using Rows = std::vector<std::string>;

// The positions that drawing appends to the list.
OutlineList Appended(const OutlineList& points) {
  GrayImage image(64, 64);
  OutlineList outline = points;
  EXPECT_TRUE(DrawOutline(image.Data(), 64, 64, outline));
  EXPECT_EQ(OutlineList(outline.begin(), outline.begin() + static_cast<long>(points.size())),
            points);
  return OutlineList(outline.begin() + static_cast<long>(points.size()), outline.end());
}

Rows Drawn(OutlineList outline, int width, int height) {
  GrayImage image(width, height);
  EXPECT_TRUE(DrawOutline(image.Data(), width, height, outline));
  return TextOf(image);
}

TEST(OutlineDrawing, SquareAppendsTheStepsOfItsThreeOpenSides) {
  EXPECT_EQ(Appended({{5, 5}, {15, 5}, {15, 15}, {5, 15}}).size(), 3u * 20u);
}

TEST(OutlineDrawing, StepsAreHalfPixelsRoundedHalfUp) {
  EXPECT_EQ(Appended({{5, 5}, {8, 5}}),
            (OutlineList{{5, 5}, {6, 5}, {6, 5}, {7, 5}, {7, 5}, {8, 5}}));
}

// 0.5 is added and the rest cut towards zero: a step of -1 stays in place and the end is not met.
TEST(OutlineDrawing, StepsTowardsSmallerCoordinatesLagBehind) {
  EXPECT_EQ(Appended({{8, 5}, {5, 5}}),
            (OutlineList{{8, 5}, {8, 5}, {8, 5}, {7, 5}, {7, 5}, {6, 5}}));
  EXPECT_EQ(Appended({{5, 8}, {5, 5}}),
            (OutlineList{{5, 8}, {5, 8}, {5, 8}, {5, 7}, {5, 7}, {5, 6}}));
}

TEST(OutlineDrawing, SlantedSideHasTwiceItsLengthOfSteps) {
  // Length 5, steps of (0.3, 0.4).
  EXPECT_EQ(Appended({{0, 0}, {3, 4}}),
            (OutlineList{
                {0, 0}, {0, 0}, {1, 1}, {1, 1}, {1, 2}, {2, 2}, {2, 2}, {2, 3}, {2, 3}, {3, 4}}));
}

TEST(OutlineDrawing, LengthIsCutToWholePixels) {
  // The diagonal of one pixel has the length 1, so two steps of half its extent.
  EXPECT_EQ(Appended({{0, 0}, {1, 1}}), (OutlineList{{0, 0}, {1, 1}}));
}

TEST(OutlineDrawing, SidesFollowInListOrder) {
  EXPECT_EQ(Appended({{5, 5}, {6, 5}, {6, 6}}), (OutlineList{{5, 5}, {6, 5}, {6, 5}, {6, 6}}));
}

TEST(OutlineDrawing, SideWithoutLengthAppendsNothing) {
  EXPECT_TRUE(Appended({{5, 5}, {5, 5}, {5, 5}}).empty());
}

TEST(OutlineDrawing, PaintsAClosedPolygon) {
  // The closing side runs towards smaller y and stops one pixel short of (1, 1), which the first
  // side has painted.
  EXPECT_EQ(Drawn({{1, 1}, {4, 1}, {4, 4}, {1, 4}}, 6, 6),
            (Rows{"######",  //
                  "#oooo#",  //
                  "#o##o#",  //
                  "#o##o#",  //
                  "#oooo#",  //
                  "######"}));
}

TEST(OutlineDrawing, ClosingSideIsPaintedButNotAppended) {
  const OutlineList triangle = {{0, 0}, {4, 0}, {0, 4}};
  EXPECT_EQ(Drawn(triangle, 5, 5)[2][0], 'o');  // on the closing side alone
  for (const PixelPosition& position : Appended(triangle)) {
    EXPECT_FALSE(position == (PixelPosition{0, 2}));
  }
}

TEST(OutlineDrawing, PointsWithoutLengthArePainted) {
  EXPECT_EQ(Drawn({{1, 1}, {1, 1}}, 4, 3),
            (Rows{"####",  //
                  "#o##",  //
                  "####"}));
}

TEST(OutlineDrawing, PositionsOutsideAreAppendedButNotPainted) {
  OutlineList outline = {{-2, 1}, {5, 1}};
  GrayImage image(4, 3);
  EXPECT_TRUE(DrawOutline(image.Data(), 4, 3, outline));
  EXPECT_EQ(outline.size(), 2u + 14u);
  EXPECT_TRUE(outline[2] == (PixelPosition{-2, 1}));
  EXPECT_EQ(TextOf(image),
            (Rows{"####",  //
                  "oooo",  //
                  "####"}));
}

TEST(OutlineDrawing, PointsOutsideWithoutLengthPaintNothing) {
  EXPECT_EQ(Drawn({{-1, 1}, {-1, 1}}, 4, 3), Rows(3, "####"));
  EXPECT_EQ(Drawn({{4, 0}, {4, 0}}, 4, 3), Rows(3, "####"));
}

TEST(OutlineDrawing, OtherPixelsStay) {
  GrayImage image = ImageOf({"....", "....", "...."});
  OutlineList outline = {{0, 1}, {1, 1}};
  EXPECT_TRUE(DrawOutline(image.Data(), 4, 3, outline));
  EXPECT_EQ(TextOf(image), (Rows{"....", "oo..", "...."}));
}

TEST(OutlineDrawing, FewerThanTwoPointsAreRefused) {
  for (const OutlineList& before : {OutlineList(), OutlineList{{1, 1}}}) {
    GrayImage image(4, 3);
    OutlineList outline = before;
    EXPECT_FALSE(DrawOutline(image.Data(), 4, 3, outline));
    EXPECT_EQ(outline, before);
    EXPECT_EQ(TextOf(image), Rows(3, "####"));
  }
}

}  // namespace
}  // namespace quorvex::tests
