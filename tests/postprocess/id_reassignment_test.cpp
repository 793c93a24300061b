#include "postprocess/id_reassignment.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "tests/support/message_box.h"
#include "tests/support/point_lists.h"
#include "tests/support/points.h"
#include "tests/support/reserved_bytes.h"

namespace quorvex::tests {
namespace {

constexpr int kRows = 7;
constexpr int kColumns = 9;

// Only messages that the test itself causes are to be seen by it.
class ReAssignmentIdTest : public ::testing::Test {
 protected:
  void SetUp() override { TakeMessages(); }
};

// The expected number, row and column of the point of a grid.
CalibrationPoint Placed(int row, int col, int columns, float x, float y) {
  return Marked(MakePoint(row * columns + col + 1, row, col, x, y), 16 * row + col);
}

PointList EquallySpacedGrid(int rows, int columns) {
  PointList grid;
  for (int col = 0; col < columns; ++col) {
    for (int row = 0; row < rows; ++row) {
      grid.push_back(Placed(row, col, columns, 500.0f + 50.0f * static_cast<float>(col),
                            300.0f + 50.0f * static_cast<float>(row)));
    }
  }
  return grid;
}

// A plane grid seen straight on through an equidistant fisheye (a ray at the angle a from the axis
// meets the image at the distance 400 a from the centre), turned by 3 degrees. The marks lie a
// quarter of the camera's distance apart. Column by column, as renumbering orders the list.
PointList FisheyeGrid() {
  constexpr double kFocalLength = 400.0;  // pixels
  constexpr double kSpacing = 0.25;
  constexpr double kTurned = 3.0 * 3.141592653589793 / 180.0;
  PointList grid;
  for (int col = 0; col < kColumns; ++col) {
    for (int row = 0; row < kRows; ++row) {
      const double planeX = kSpacing * (col - kColumns / 2);
      const double planeY = kSpacing * (row - kRows / 2);
      const double radius = std::hypot(planeX, planeY);
      const double scale = radius > 0.0 ? kFocalLength * std::atan(radius) / radius : 0.0;
      const double x = scale * (planeX * std::cos(kTurned) - planeY * std::sin(kTurned));
      const double y = scale * (planeX * std::sin(kTurned) + planeY * std::cos(kTurned));
      grid.push_back(
          Placed(row, col, kColumns, static_cast<float>(640.0 + x), static_cast<float>(480.0 + y)));
    }
  }
  return grid;
}

// The same points as an operator may leave them: in another order, without numbers.
PointList Shuffled(const PointList& grid) {
  PointList points;
  const std::size_t step = 11;  // has no divisor in common with the sizes in use
  for (std::size_t i = 0; i < grid.size(); ++i) {
    points.push_back(grid[(i * step + 5) % grid.size()]);
    points.back().id = -1;
    points.back().row = 100;
    points.back().col = -100;
  }
  return points;
}

void ExpectRefused(int rows, int columns, PointList points) {
  const PointList before = points;
  EXPECT_FALSE(ReAssignmentID(rows, columns, points));
  ExpectSameBytes(points, before);
}

void ExpectRefusedSilently(int rows, int columns, const PointList& points) {
  ExpectRefused(rows, columns, points);
  EXPECT_TRUE(TakeMessages().empty());
}

void ExpectRefusedWithMessage(int rows, int columns, const PointList& points) {
  ExpectRefused(rows, columns, points);
  EXPECT_EQ(TakeMessages(), std::vector<std::string>{"点集数量与行列数不一致！"});
}

void ExpectRenumbered(int rows, int columns, const PointList& expected) {
  PointList points = Shuffled(expected);
  EXPECT_TRUE(ReAssignmentID(rows, columns, points));
  ExpectSameBytes(points, expected);
  EXPECT_TRUE(TakeMessages().empty());
}

TEST_F(ReAssignmentIdTest, NinePointsAreNumberedRowByRowFromTheSmallestYAndX) {
  ExpectRenumbered(3, 3, EquallySpacedGrid(3, 3));
}

TEST_F(ReAssignmentIdTest, EqualSpacingEndsEveryTraceAfterItsFirstNeighbour) {
  ExpectRefusedSilently(5, 5, EquallySpacedGrid(5, 5));
  ExpectRefusedSilently(kRows, kColumns, EquallySpacedGrid(kRows, kColumns));
  ExpectRefusedSilently(1, 4, EquallySpacedGrid(1, 4));
  ExpectRefusedSilently(4, 1, EquallySpacedGrid(4, 1));
}

TEST_F(ReAssignmentIdTest, SpacingThatShrinksOutwardsIsFollowedToTheBorder) {
  ExpectRenumbered(kRows, kColumns, FisheyeGrid());
}

TEST_F(ReAssignmentIdTest, NumberingOfANumberedGridChangesNothing) {
  PointList points = FisheyeGrid();
  ASSERT_TRUE(ReAssignmentID(kRows, kColumns, points));
  ExpectSameBytes(points, FisheyeGrid());
}

TEST_F(ReAssignmentIdTest, RowsAndColumnsAreTakenAsGivenWhereTheirProductFits) {
  // Nobody compares them with the rows and columns found: they scale the ids alone.
  PointList points = EquallySpacedGrid(3, 3);
  ASSERT_TRUE(ReAssignmentID(9, 1, points));
  EXPECT_EQ(points[8].row, 2);
  EXPECT_EQ(points[8].col, 2);
  EXPECT_EQ(points[8].id, 2 * 1 + 1 + 2);
}

TEST_F(ReAssignmentIdTest, AnEmptyListIsRefusedSilently) {
  ExpectRefusedSilently(3, 3, {});
  ExpectRefusedSilently(0, 0, {});
}

TEST_F(ReAssignmentIdTest, AnotherNumberOfPointsShowsTheMessage) {
  ExpectRefusedWithMessage(3, 3, EquallySpacedGrid(3, 4));
  ExpectRefusedWithMessage(3, 3, EquallySpacedGrid(2, 4));
  ExpectRefusedWithMessage(0, 3, EquallySpacedGrid(3, 3));
  ExpectRefusedWithMessage(-3, 3, EquallySpacedGrid(3, 3));
}

TEST_F(ReAssignmentIdTest, TheProductOfLargeCountsIsNotCut) {
  ExpectRefusedWithMessage(65536, 65536, EquallySpacedGrid(3, 3));
  ExpectRefusedWithMessage(641, 6700417, {At(1.0f, 1.0f)});  // 2^32 + 1
}

TEST_F(ReAssignmentIdTest, AMissingMarkIsRefusedAlsoWhenAnotherIsTooMany) {
  PointList points = FisheyeGrid();
  points[10].x = 100.0f;
  points[10].y = 900.0f;
  ExpectRefusedSilently(kRows, kColumns, points);
}

TEST_F(ReAssignmentIdTest, ASinglePointIsAGrid) { ExpectRenumbered(1, 1, EquallySpacedGrid(1, 1)); }

TEST_F(ReAssignmentIdTest, TheListsFirstPointIsTheStartWhereNoneIsNearTheCentre) {
  PointList points = {At(std::numeric_limits<float>::infinity(), 0.0f)};
  EXPECT_TRUE(ReAssignmentID(1, 1, points));
  EXPECT_EQ(points[0].id, 1);
}

TEST_F(ReAssignmentIdTest, ALineWithoutNeighboursAcrossIsAGrid) {
  ExpectRenumbered(1, 3, EquallySpacedGrid(1, 3));
  ExpectRenumbered(3, 1, EquallySpacedGrid(3, 1));
}

TEST_F(ReAssignmentIdTest, PointsNearerThanFivePixelsAreNotNeighbours) {
  ExpectRefusedSilently(1, 2, {At(100.0f, 100.0f), At(104.0f, 100.0f)});
  ExpectRefusedSilently(1, 2, {At(100.0f, 100.0f), At(105.0f, 100.0f)});
  ExpectRenumbered(1, 2, {Placed(0, 0, 2, 100.0f, 100.0f), Placed(0, 1, 2, 105.5f, 100.0f)});
}

TEST_F(ReAssignmentIdTest, NeighboursAreLessThanThousandPixelsApart) {
  ExpectRefusedSilently(1, 2, {At(0.0f, 0.0f), At(1000.0f, 0.0f)});
  ExpectRenumbered(1, 2, {Placed(0, 0, 2, 0.0f, 0.0f), Placed(0, 1, 2, 999.5f, 0.0f)});
}

// Four points in a row of the steps 90, 100 and 101 (aslant). From the third the trace to the left
// shrinks, from the second the trace to the right grows and fails; so the result tells the start.
PointList RowThatTellsItsStart(float leftX, float offset, bool isThirdFirst) {
  const CalibrationPoint left = At(offset + leftX, 0.0f);
  const CalibrationPoint second = At(offset + 100.0f, 0.0f);
  const CalibrationPoint third = At(offset + 200.0f, 0.0f);
  const CalibrationPoint right = At(offset + 290.0f, 45.0f);
  return isThirdFirst ? PointList{left, third, second, right}
                      : PointList{left, second, third, right};
}

TEST_F(ReAssignmentIdTest, OfTwoPointsEquallyNearTheCentreTheFirstIsTheStart) {
  ExpectRefusedSilently(1, 4, RowThatTellsItsStart(10.0f, 0.0f, false));
  PointList points = RowThatTellsItsStart(10.0f, 0.0f, true);
  EXPECT_TRUE(ReAssignmentID(1, 4, points));
}

TEST_F(ReAssignmentIdTest, ThePointNearerToTheCentreIsTheStart) {
  ExpectRefusedSilently(1, 4, RowThatTellsItsStart(9.0f, 0.0f, true));
  PointList points = RowThatTellsItsStart(11.0f, 0.0f, false);
  EXPECT_TRUE(ReAssignmentID(1, 4, points));
}

TEST_F(ReAssignmentIdTest, TheCentreIsSummedInSinglePrecision) {
  // The sum 2^22 + 599.75 lies between two floats and becomes 2^22 + 600: a tie of the middle
  // points, where the exact sum is nearer to the second.
  PointList points = RowThatTellsItsStart(9.75f, 1048576.0f, true);
  EXPECT_TRUE(ReAssignmentID(1, 4, points));
}

// The third point lies 63 degrees from both others, above them.
TEST_F(ReAssignmentIdTest, APointOfTwoColumnsIsCountedTwice) {
  ExpectRefusedSilently(1, 3, {At(0.0f, 0.0f), At(100.0f, 0.0f), At(50.0f, 100.0f)});
}

// The last point lies in no sector of the others; the start is the second point.
TEST_F(ReAssignmentIdTest, APointCountedTwiceCanStandInForALostOne) {
  PointList points = {At(0.0f, 0.0f), At(100.0f, 0.0f), At(50.0f, 100.0f), At(250.0f, -100.0f)};
  ASSERT_TRUE(ReAssignmentID(2, 2, points));
  ASSERT_EQ(points.size(), 4u);
  EXPECT_EQ(Bits(points[1].x), Bits(50.0f));
  EXPECT_EQ(Bits(points[3].x), Bits(50.0f));
  EXPECT_EQ(points[1].id, 3);
  EXPECT_EQ(points[3].id, 4);
}

}  // namespace
}  // namespace quorvex::tests
