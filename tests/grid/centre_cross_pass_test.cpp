#include "grid/centre_cross_pass.h"

#include <gtest/gtest.h>

#include "tests/support/point_lists.h"
#include "tests/support/points.h"
#include "tests/support/stroke_image.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr int kSize = 800;  // pixels

class CentreCrossPassTest : public ::testing::Test {
 protected:
  bool Build(PointList& output, int rowSpan = 20, int rowSteps = 300) {
    return BuildGridFromCentreCross(image.Data(), kSize, kSize, rowSpan, 99, rowSteps,
                                    FullSpans(kSize, kSize), FullSpans(kSize, kSize), output);
  }

  TemporaryDirectory directory;  // for the pictures of the cross search
  GrayImage image{kSize, kSize};
};

TEST_F(CentreCrossPassTest, LabelsTheWholeGrid) {
  DrawCrosses(image, {100, 250, 400, 550, 700}, {100, 250, 400, 550, 700});
  PointList grid;
  EXPECT_TRUE(Build(grid));
  ExpectPlacesOfFiveByFive(grid);
}

TEST_F(CentreCrossPassTest, RowSpanBoundsTheRowsTowardsLargerY) {
  DrawCrosses(image, {250, 400, 550}, {100, 250, 400, 550, 700});
  PointList grid;
  EXPECT_TRUE(Build(grid, 0));
  // Of equally bright crosses the search takes that of the smallest y within its reach: the centre
  // row lies at y = 250. One row follows at larger y, one at smaller y.
  EXPECT_EQ(grid.size(), 9u);
}

TEST_F(CentreCrossPassTest, PointsOfTheOutputStayInFront) {
  DrawCrosses(image, {250, 400, 550}, {400});
  PointList grid = {MakePoint(77, 5, 6, 1.0f, 2.0f)};
  EXPECT_TRUE(Build(grid));
  ASSERT_EQ(grid.size(), 4u);
  EXPECT_EQ(grid[0].id, 77);
  EXPECT_EQ(grid[0].row, 5);
}

TEST_F(CentreCrossPassTest, WithoutACrossWithinReachThereIsNoGrid) {
  // The search reaches 250 pixels at the most.
  DrawCrosses(image, {80, 720}, {80, 720});
  PointList grid = {MakePoint(77, 5, 6, 1.0f, 2.0f)};
  EXPECT_FALSE(Build(grid));
  EXPECT_EQ(grid.size(), 1u);
}

// The grid of two crosses of which the first one's stroke begins so many pixels beyond the middle
// of a wide image.
PointList GridFrom(int beyond) {
  constexpr int kWidth = 1200;  // pixels
  GrayImage image{kWidth, kSize};
  const int first = kWidth / 2 + beyond + kArm;
  DrawCrosses(image, {first, first + 150}, {kSize / 2});
  PointList grid;
  BuildGridFromCentreCross(image.Data(), kWidth, kSize, 20, 99, 300, FullSpans(kSize, kWidth),
                           FullSpans(kWidth, kSize), grid);
  return grid;
}

// The last of the windows that are compared ends 248 pixels beyond the middle of the image.
TEST_F(CentreCrossPassTest, TheTipOfACrossWithinReachIsEnough) {
  EXPECT_EQ(GridFrom(248).size(), 2u);
  EXPECT_EQ(GridFrom(249).size(), 0u);
}

TEST_F(CentreCrossPassTest, ACentreRowOfOneCrossIsNoGrid) {
  DrawCrosses(image, {400}, {250, 400, 550});
  PointList grid;
  EXPECT_FALSE(Build(grid));
  EXPECT_TRUE(grid.empty());
}

TEST_F(CentreCrossPassTest, RowStepsOf121NeverFindANextCross) {
  DrawCrosses(image, {250, 400, 550}, {250, 400, 550});
  PointList grid;
  EXPECT_FALSE(Build(grid, 20, 121));
  EXPECT_TRUE(Build(grid, 20, 300));
}

// A mark 30 pixels off its line is still found, but thrown out.
TEST_F(CentreCrossPassTest, AStrayOfTheCentreRowHasNoColumn) {
  DrawCrosses(image, {100, 250, 400, 700}, {250, 400, 550});
  DrawCrosses(image, {550}, {280, 430, 580});
  PointList grid;
  EXPECT_TRUE(Build(grid));
  EXPECT_EQ(grid.size(), 12u);
}

TEST_F(CentreCrossPassTest, AStrayOfAColumnGetsNoPlace) {
  DrawCrosses(image, {100, 250, 400, 550, 700}, {100, 250, 400, 700});
  DrawCrosses(image, {100, 250, 400, 700}, {550});
  DrawCrosses(image, {580}, {550});
  PointList grid;
  EXPECT_TRUE(Build(grid));
  EXPECT_EQ(grid.size(), 24u);
}

// To the left of the centre cross a blot stops the row's walk; the two strokes near it meet far
// off, at (159, 492), where no stroke is. That crossing joins the centre row, but no column can be
// traced from it.
TEST_F(CentreCrossPassTest, ACrossWithoutAColumnStillUsesUpItsLabel) {
  DrawCrosses(image, {400}, {400, 550, 700});
  DrawBox(image, 255, 395, 264, 404);
  DrawBox(image, 158, 297, 160, 393);
  DrawBox(image, 257, 491, 353, 493);
  PointList grid;
  EXPECT_TRUE(Build(grid));
  ASSERT_EQ(grid.size(), 1u);
  EXPECT_EQ(grid[0].col, 1);
  EXPECT_EQ(grid[0].row, 0);
  EXPECT_EQ(CellAt(grid[0].x), 2);
}

}  // namespace
}  // namespace quorvex::tests
