#include "grid/missing_points.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "tests/support/list_drive.h"
#include "tests/support/points.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

class PredictMissingGridPointsTest : public ::testing::Test {
 protected:
  bool HasWrittenQuartic() const { return drive.HasList("sdf.txt"); }

  TemporaryDirectory directory;
  ListDrive drive;
};

// Straight rows and columns 50 pixels apart, row 0 at y = 30 and column 0 at x = 40.
PointList Grid(int rows, int cols, const std::vector<int>& missingCells) {
  PointList points;
  for (int cell = 0; cell < rows * cols; ++cell) {
    if (std::find(missingCells.begin(), missingCells.end(), cell) == missingCells.end()) {
      points.push_back(MakePoint(cell + 1, cell / cols, cell % cols,
                                 40.0f + 50.0f * static_cast<float>(cell % cols),
                                 30.0f + 50.0f * static_cast<float>(cell / cols)));
    }
  }
  return points;
}

TEST_F(PredictMissingGridPointsTest, AFullGridGetsNothingAndWritesNothing) {
  PointList predicted;
  PredictMissingGridPoints(Grid(3, 4, {}), 3, 4, 500, 500, predicted);
  EXPECT_TRUE(predicted.empty());
  EXPECT_FALSE(HasWrittenQuartic());
}

TEST_F(PredictMissingGridPointsTest, AGridOfOneRowGetsNothing) {
  PointList predicted;
  PredictMissingGridPoints(Grid(1, 5, {2}), 1, 5, 500, 500, predicted);
  EXPECT_TRUE(predicted.empty());
  EXPECT_FALSE(HasWrittenQuartic());
}

TEST_F(PredictMissingGridPointsTest, AnEmptyGridSizeIsLeftAlone) {
  PointList predicted;
  PredictMissingGridPoints(Grid(2, 2, {0}), 0, 2, 500, 500, predicted);
  PredictMissingGridPoints(Grid(2, 2, {0}), 2, 0, 500, 500, predicted);
  EXPECT_TRUE(predicted.empty());
}

TEST_F(PredictMissingGridPointsTest, TheMissingCellIsNumberedByItsPlace) {
  PointList predicted = {MakePoint(99, 0, 0, 0.0f, 0.0f)};
  PredictMissingGridPoints(Grid(7, 9, {4 * 9 + 5}), 7, 9, 600, 600, predicted);
  ASSERT_EQ(predicted.size(), 2u);
  EXPECT_EQ(predicted[0].id, 99);
  EXPECT_EQ(predicted[1].id, 9 * 4 + 5 + 1);
  EXPECT_EQ(predicted[1].row, 4);
  EXPECT_EQ(predicted[1].col, 5);
  EXPECT_NEAR(predicted[1].x, 40.0 + 50.0 * 5, 0.02);
  EXPECT_NEAR(predicted[1].y, 30.0 + 50.0 * 4, 0.02);
  EXPECT_TRUE(HasWrittenQuartic());
}

TEST_F(PredictMissingGridPointsTest, TwoPointsEachGiveTheCrossingOfTwoLines) {
  // Row 0: y = 0.5 x + 10; column 2: x = 0.25 y + 30; they meet at x = 32.5 / 0.875.
  const PointList points = {MakePoint(0, 0, 0, 0.0f, 10.0f), MakePoint(0, 0, 1, 100.0f, 60.0f),
                            MakePoint(0, 1, 2, 50.0f, 80.0f), MakePoint(0, 2, 2, 80.0f, 200.0f)};
  PointList predicted;
  PredictMissingGridPoints(points, 1, 3, 300, 300, predicted);
  ASSERT_EQ(predicted.size(), 1u);
  EXPECT_EQ(predicted[0].id, 3);
  EXPECT_NEAR(predicted[0].x, 32.5 / 0.875, 0.02);
}

TEST_F(PredictMissingGridPointsTest, CellsComeInOrder) {
  PointList predicted;
  PredictMissingGridPoints(Grid(3, 3, {1, 3}), 3, 3, 500, 500, predicted);
  ASSERT_EQ(predicted.size(), 2u);
  EXPECT_EQ(predicted[0].id, 2);
  EXPECT_EQ(predicted[1].id, 4);
}

// Column 2 keeps one mark, so that neither of its cells is predicted; either would have helped the
// other.
TEST_F(PredictMissingGridPointsTest, PredictionsDoNotHelpEachOther) {
  PointList predicted;
  PredictMissingGridPoints(Grid(3, 4, {1, 2, 6}), 3, 4, 500, 500, predicted);
  ASSERT_EQ(predicted.size(), 1u);
  EXPECT_EQ(predicted[0].id, 2);
}

TEST_F(PredictMissingGridPointsTest, ACrossingOutsideTheImageIsDropped) {
  // Two points each: row 2 is the line y = 130, column 2 the line x = 140.
  PointList predicted;
  PredictMissingGridPoints(Grid(3, 3, {8}), 3, 3, 200, 130, predicted);
  EXPECT_TRUE(predicted.empty());
  PredictMissingGridPoints(Grid(3, 3, {8}), 3, 3, 130, 200, predicted);
  EXPECT_TRUE(predicted.empty());  // 11 pixels beyond the last column of the image
  PredictMissingGridPoints(Grid(3, 3, {8}), 3, 3, 200, 131, predicted);
  EXPECT_EQ(predicted.size(), 1u);
}

TEST_F(PredictMissingGridPointsTest, AFitThatFailsLeavesTheCellEmpty) {
  // Both points of row 0 share their x.
  const PointList points = {MakePoint(0, 0, 0, 10.0f, 10.0f), MakePoint(0, 0, 1, 10.0f, 20.0f),
                            MakePoint(0, 1, 2, 50.0f, 80.0f), MakePoint(0, 2, 2, 80.0f, 200.0f)};
  PointList predicted;
  PredictMissingGridPoints(points, 1, 3, 300, 300, predicted);
  EXPECT_TRUE(predicted.empty());
  EXPECT_FALSE(HasWrittenQuartic());
}

TEST_F(PredictMissingGridPointsTest, OtherFieldsComeFromTheLastPointOfTheColumn) {
  PointList points = Grid(3, 3, {4});
  for (std::size_t i = 0; i < points.size(); ++i) {
    std::memset(points[i].reservedAfterCol, static_cast<int>(i) + 1, 12);
    std::memset(points[i].reservedAfterY, static_cast<int>(i) + 1, 32);
  }
  PointList predicted;
  PredictMissingGridPoints(points, 3, 3, 500, 500, predicted);
  ASSERT_EQ(predicted.size(), 1u);
  // Cells 0 to 3, then 5 to 8: (2, 1) is the seventh in the list.
  EXPECT_EQ(predicted[0].reservedAfterCol[11], 7);
  EXPECT_EQ(predicted[0].reservedAfterY[31], 7);
}

TEST_F(PredictMissingGridPointsTest, APointOutsideTheGridOccupiesNothing) {
  PointList points = Grid(3, 3, {8});
  points.push_back(MakePoint(0, 3, 0, 1.0f, 1.0f));
  points.push_back(MakePoint(0, -1, 0, 1.0f, 1.0f));
  points.push_back(MakePoint(0, 2147483647, 2147483647, 1.0f, 1.0f));
  PointList predicted;
  PredictMissingGridPoints(points, 3, 3, 500, 500, predicted);
  ASSERT_EQ(predicted.size(), 1u);
  EXPECT_EQ(predicted[0].id, 9);
}

// The cell index alone decides: row 1, column 5 of a grid of three columns is cell 8.
TEST_F(PredictMissingGridPointsTest, AnIndexThatWrapsOccupiesTheCellItFallsOn) {
  PointList points = Grid(3, 3, {8});
  points.push_back(MakePoint(0, 1, 5, 290.0f, 80.0f));
  PointList predicted;
  PredictMissingGridPoints(points, 3, 3, 500, 500, predicted);
  EXPECT_TRUE(predicted.empty());
}

}  // namespace
}  // namespace quorvex::tests
