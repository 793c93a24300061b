#include "grid/line_growing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <utility>
#include <vector>

#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

constexpr QuadraticCoefficients kSeed = {0.0f, 0.0f, 200.0f};
constexpr int kUnread = -77;

// A mark of column `col` at height y; rows are what GrowRows has to find.
CalibrationPoint Mark(int id, int col, float y) {
  return MakePoint(id, kUnread, col, 100.0f * static_cast<float>(col), y);
}

// Rows of `columns` marks at the given heights; the id is 10 * (position of the height) + column.
PointList Rows(int columns, const std::vector<float>& heights) {
  PointList points;
  for (std::size_t i = 0; i < heights.size(); ++i) {
    for (int col = 0; col < columns; ++col) {
      points.push_back(Mark(10 * static_cast<int>(i) + col, col, heights[i]));
    }
  }
  return points;
}

PointList Transposed(PointList points) {
  for (CalibrationPoint& point : points) {
    std::swap(point.x, point.y);
    std::swap(point.row, point.col);
  }
  return points;
}

std::vector<std::pair<int, int>> IdsAndRows(const PointList& points) {
  std::vector<std::pair<int, int>> result;
  for (const CalibrationPoint& point : points) {
    result.emplace_back(point.id, point.row);
  }
  return result;
}

using Expected = std::vector<std::pair<int, int>>;

TEST(GrowRows, OnePointFailsAndLeavesTheOutput) {
  PointList output = {Mark(5, 0, 1.0f)};
  EXPECT_FALSE(GrowRows({Mark(1, 0, 200.0f)}, 5, 0, kSeed, output));
  EXPECT_FALSE(GrowRows({}, 5, 0, kSeed, output));
  EXPECT_FALSE(GrowColumns({Mark(1, 0, 200.0f)}, 5, 5, kSeed, output));
  EXPECT_EQ(IdsAndRows(output), (Expected{{5, kUnread}}));
}

TEST(GrowRows, EmptiesTheOutputAndLeavesTheInput) {
  PointList output = {Mark(5, 0, 1.0f)};
  const PointList input = Rows(2, {200.0f});
  EXPECT_TRUE(GrowRows(input, 5, 0, kSeed, output));
  EXPECT_EQ(IdsAndRows(output), (Expected{{0, 0}, {1, 0}}));
  EXPECT_EQ(input[0].row, kUnread);
}

TEST(GrowRows, TwoRowsAtLargerYTurnTheNumbersRound) {
  PointList output;
  EXPECT_TRUE(GrowRows(Rows(3, {400.0f, 200.0f, 300.0f}), 5, 0, kSeed, output));
  // Seed row first, then outward; the row of the largest y is row 0.
  EXPECT_EQ(
      IdsAndRows(output),
      (Expected{{10, 2}, {11, 2}, {12, 2}, {20, 1}, {21, 1}, {22, 1}, {0, 0}, {1, 0}, {2, 0}}));
}

TEST(GrowRows, RowsAtSmallerYCountUpward) {
  PointList output;
  EXPECT_TRUE(GrowRows(Rows(3, {200.0f, 100.0f, 300.0f}), 5, 0, kSeed, output));
  EXPECT_EQ(
      IdsAndRows(output),
      (Expected{{0, 1}, {1, 1}, {2, 1}, {20, 0}, {21, 0}, {22, 0}, {10, 2}, {11, 2}, {12, 2}}));
}

TEST(GrowColumns, OneColumnAtSmallerXTurnsIntoColumnZero) {
  PointList output;
  EXPECT_TRUE(GrowColumns(Transposed(Rows(3, {200.0f, 100.0f})), 0, 5, kSeed, output));
  ASSERT_EQ(output.size(), 6u);
  for (const CalibrationPoint& point : output) {
    EXPECT_EQ(point.col, point.id < 10 ? 1 : 0);
    EXPECT_EQ(point.row, point.id % 10);  // the label is kept
  }
}

TEST(GrowColumns, CountsAlongX) {
  PointList output;
  EXPECT_TRUE(GrowColumns(Transposed(Rows(3, {200.0f, 300.0f, 400.0f})), 0, 5, kSeed, output));
  ASSERT_EQ(output.size(), 9u);
  for (const CalibrationPoint& point : output) {
    EXPECT_EQ(point.col, point.id / 10);
  }
}

TEST(GrowRows, TheSeedRowAloneIsRowZero) {
  PointList output;
  EXPECT_TRUE(GrowRows(Rows(3, {200.0f}), 5, 0, kSeed, output));
  EXPECT_EQ(IdsAndRows(output), (Expected{{0, 0}, {1, 0}, {2, 0}}));
  EXPECT_TRUE(GrowColumns(Transposed(Rows(3, {200.0f})), 0, 5, kSeed, output));
  for (const CalibrationPoint& point : output) {
    EXPECT_EQ(point.col, 0);
  }
}

TEST(GrowRows, FewerThanThreeColumnsAddNoRow) {
  PointList output;
  EXPECT_TRUE(GrowRows(Rows(2, {200.0f, 300.0f, 100.0f}), 5, 0, kSeed, output));
  EXPECT_EQ(output.size(), 2u);
  EXPECT_TRUE(GrowRows(Rows(3, {200.0f, 300.0f, 100.0f}), 5, 0, kSeed, output));
  EXPECT_EQ(output.size(), 9u);
}

TEST(GrowRows, TheSpanBoundsTheWalkTowardsLargerYOnly) {
  const PointList input = Rows(
      3, {1000.0f, 900.0f, 800.0f, 700.0f, 600.0f, 1100.0f, 1200.0f, 1300.0f, 1400.0f, 1500.0f});
  const QuadraticCoefficients seed = {0.0f, 0.0f, 1000.0f};
  const struct {
    int span;
    std::size_t rowsAtLargerY;
    std::size_t rowsAtSmallerY;
  } cases[] = {{0, 1, 4}, {1, 3, 4}, {5, 5, 4}, {-1, 1, 1}};
  for (const auto& c : cases) {
    PointList output;
    EXPECT_TRUE(GrowRows(input, c.span, 99, seed, output));
    EXPECT_EQ(output.size(), 3 * (1 + c.rowsAtLargerY + c.rowsAtSmallerY)) << "span " << c.span;
    EXPECT_TRUE(GrowColumns(Transposed(input), 99, c.span, seed, output));
    EXPECT_EQ(output.size(), 3 * (1 + c.rowsAtLargerY + c.rowsAtSmallerY)) << "span " << c.span;
  }
}

TEST(GrowRows, APointTenPixelsOffIsNeitherSeedNorCandidate) {
  for (const float y : {190.0f, 210.0f}) {
    PointList output;
    EXPECT_TRUE(GrowRows(Rows(3, {y}), 5, 0, kSeed, output));
    EXPECT_TRUE(output.empty());
    const float inside = std::nextafter(y, 200.0f);
    EXPECT_TRUE(GrowRows(Rows(3, {inside}), 5, 0, kSeed, output));
    EXPECT_EQ(output.size(), 3u);
    const float outside = y > 200.0f ? std::nextafter(y, 300.0f) : std::nextafter(y, 0.0f);
    EXPECT_TRUE(GrowRows(Rows(3, {200.0f, outside}), 5, 0, kSeed, output));
    EXPECT_EQ(output.size(), 6u);
  }
}

TEST(GrowRows, APointAThousandPixelsBeyondIsNeverTaken) {
  for (const float sign : {1.0f, -1.0f}) {
    PointList output;
    EXPECT_TRUE(GrowRows(Rows(3, {200.0f, 200.0f + sign * 1000.0f}), 5, 0, kSeed, output));
    EXPECT_EQ(output.size(), 3u);
    EXPECT_TRUE(GrowRows(Rows(3, {200.0f, 200.0f + sign * 999.0f}), 5, 0, kSeed, output));
    EXPECT_EQ(output.size(), 6u);
  }
}

TEST(GrowRows, OfEquallyNearPointsTheFirstIsTaken) {
  PointList input = Rows(3, {200.0f, 300.0f, 100.0f});
  input.push_back(Mark(91, 1, 300.0f));
  input.push_back(Mark(92, 1, 100.0f));
  PointList output;
  EXPECT_TRUE(GrowRows(input, 5, 0, kSeed, output));
  EXPECT_EQ(output.size(), 9u);
  for (const CalibrationPoint& point : output) {
    EXPECT_LT(point.id, 90);
  }
}

// The stray of column 2 bars its column's mark in the next row, too, and is thrown out each time.
TEST(GrowRows, ACandidateThrownOutGetsNoIndexButComesAgain) {
  PointList input = Rows(5, {200.0f, 300.0f, 400.0f});
  input[7].y = 330.0f;
  PointList output;
  EXPECT_TRUE(GrowRows(input, 5, 0, kSeed, output));
  std::map<int, int> rowOf;
  for (const auto& [id, row] : IdsAndRows(output)) {
    rowOf[id] = row;
  }
  EXPECT_EQ(output.size(), 13u);
  EXPECT_EQ(rowOf.count(12), 0u);
  EXPECT_EQ(rowOf.count(22), 0u);
  EXPECT_EQ(rowOf[11], 1);
  EXPECT_EQ(rowOf[21], 0);
}

TEST(GrowRows, NegativeLabelsAreOnlyInTheSeedRow) {
  PointList input = Rows(3, {200.0f, 300.0f});
  for (CalibrationPoint& point : input) {
    point.col -= 1;
  }
  PointList output;
  EXPECT_TRUE(GrowRows(input, 5, 0, kSeed, output));
  EXPECT_EQ(output.size(), 3u);
}

// Three marks of one x: their curve is far off, two of them go, and the curve of the one that
// remains is zero again, like the seed: every step would repeat the first.
PointList MarksOfOneX(float y) {
  return {MakePoint(0, kUnread, 0, 0.1f, y), MakePoint(1, kUnread, 1, 0.1f, 2.0f * y),
          MakePoint(2, kUnread, 2, 0.1f, 3.0f * y)};
}

TEST(GrowRows, LabelsMayBeAnyNumber) {
  PointList input = Rows(3, {200.0f, 300.0f});
  for (CalibrationPoint& point : input) {
    constexpr int kLabels[] = {5, 1'000'000, std::numeric_limits<int>::max()};
    point.col = kLabels[point.col];
  }
  PointList output;
  EXPECT_TRUE(GrowRows(input, 5, 0, kSeed, output));
  EXPECT_EQ(IdsAndRows(output), (Expected{{0, 1}, {1, 1}, {2, 1}, {10, 0}, {11, 0}, {12, 0}}));
}

// By label, and within a label in list order, wherever the points stand.
TEST(GrowRows, CandidatesComeByLabelWhateverTheListsOrder) {
  PointList output;
  EXPECT_TRUE(
      GrowRows({Mark(12, 2, 300.0f), Mark(0, 0, 200.0f), Mark(10, 0, 300.0f), Mark(2, 2, 200.0f),
                Mark(20, 0, 300.0f), Mark(1, 1, 200.0f), Mark(11, 1, 300.0f), Mark(22, 2, 300.0f)},
               5, 0, kSeed, output));
  EXPECT_EQ(IdsAndRows(output), (Expected{{0, 1}, {2, 1}, {1, 1}, {10, 0}, {11, 0}, {12, 0}}));
}

TEST(GrowRows, TheWalkTowardsSmallerYEndsWhenItsCurveComesBack) {
  PointList output;
  EXPECT_TRUE(GrowRows(MarksOfOneX(-100.0f), 5, 0, {}, output));
  EXPECT_TRUE(output.empty());
}

TEST(GrowRows, ANegativeSpanEndsBothWalksAfterOneStep) {
  PointList output;
  EXPECT_TRUE(GrowRows(MarksOfOneX(-100.0f), -1, 0, {}, output));
  ASSERT_EQ(output.size(), 1u);
  EXPECT_EQ(output[0].y, -300.0f);
  EXPECT_EQ(output[0].row, 1);
}

TEST(GrowRows, TheWalkTowardsLargerYRepeatsUntilTheSpanEndsIt) {
  PointList output;
  EXPECT_TRUE(GrowRows(MarksOfOneX(100.0f), 1, 0, {}, output));
  ASSERT_EQ(output.size(), 3u);
  EXPECT_EQ(output[0].id, output[2].id);
  EXPECT_EQ(output[0].row, 2);
  EXPECT_EQ(output[2].row, 0);
}

TEST(GrowRows, ACurveThatIsNotANumberEndsTheWalk) {
  PointList input = MarksOfOneX(100.0f);
  for (CalibrationPoint& point : input) {
    point.x = 5.0f;  // no finite curve
  }
  PointList output;
  EXPECT_TRUE(GrowRows(input, 5, 0, {}, output));
  EXPECT_EQ(output.size(), 3u);
}

}  // namespace
}  // namespace quorvex::tests
