#include "grid/line_tracing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "tests/support/points.h"
#include "tests/support/stroke_image.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr int kSize = 800;  // pixels
constexpr int kPitch = 150;
constexpr int kFirst = 100;  // where the first row and column of crosses lie
constexpr int kSteps = 300;

using Cells = std::vector<std::pair<int, int>>;

// The cross (column, row) nearest to each point.
Cells CellsOf(const PointList& points) {
  Cells cells;
  for (const CalibrationPoint& point : points) {
    cells.emplace_back(std::lround((point.x - kFirst) / kPitch),
                       std::lround((point.y - kFirst) / kPitch));
    EXPECT_LT(std::fabs(point.x - static_cast<float>(kFirst + kPitch * cells.back().first)), 1.0f);
    EXPECT_LT(std::fabs(point.y - static_cast<float>(kFirst + kPitch * cells.back().second)), 1.0f);
  }
  return cells;
}

class LineTracingTest : public ::testing::Test {
 protected:
  void DrawGrid() { DrawCrosses(image, {100, 250, 400, 550, 700}, {100, 250, 400, 550, 700}); }

  void Row(int x, int y, PointList& points, int steps = kSteps, int label = 7) {
    EXPECT_TRUE(
        TraceRow(image.Data(), kSize, kSize, x, y, steps, rowSpans, columnSpans, label, points));
  }

  void Column(int x, int y, PointList& points, int unused = 0, int label = 7) {
    EXPECT_TRUE(TraceColumn(image.Data(), kSize, kSize, x, y, unused, rowSpans, columnSpans, label,
                            points));
  }

  TemporaryDirectory directory;  // for the pictures of the cross search
  GrayImage image{kSize, kSize};
  PixelSpanList rowSpans = FullSpans(kSize, kSize);
  PixelSpanList columnSpans = FullSpans(kSize, kSize);
};

TEST_F(LineTracingTest, ARowGoesRightThenLeftNearestFirst) {
  DrawGrid();
  PointList points;
  Row(395, 405, points);
  EXPECT_EQ(CellsOf(points), (Cells{{2, 2}, {3, 2}, {4, 2}, {1, 2}, {0, 2}}));
}

TEST_F(LineTracingTest, AColumnGoesToLargerYThenToSmallerY) {
  DrawGrid();
  PointList points;
  Column(395, 405, points);
  EXPECT_EQ(CellsOf(points), (Cells{{2, 2}, {2, 3}, {2, 4}, {2, 1}, {2, 0}}));
}

TEST_F(LineTracingTest, NewRecordsCarryTheLabelAndZeros) {
  DrawGrid();
  PointList row, column;
  Row(400, 400, row, kSteps, -3);
  Column(400, 400, column, 0, 12);
  ASSERT_FALSE(row.empty());
  ASSERT_FALSE(column.empty());
  for (const CalibrationPoint& point : row) {
    EXPECT_EQ(point.id, 0);
    EXPECT_EQ(point.row, -3);
    EXPECT_EQ(point.col, 0);
    EXPECT_TRUE(std::all_of(std::begin(point.reservedAfterY), std::end(point.reservedAfterY),
                            [](unsigned char byte) { return byte == 0; }));
    EXPECT_TRUE(std::all_of(std::begin(point.reservedAfterCol), std::end(point.reservedAfterCol),
                            [](unsigned char byte) { return byte == 0; }));
  }
  for (const CalibrationPoint& point : column) {
    EXPECT_EQ(point.row, 0);
    EXPECT_EQ(point.col, 12);
  }
}

TEST_F(LineTracingTest, WithoutAStartCrossNothingIsTraced) {
  PointList points = {At(1.0f, 2.0f)};
  Row(400, 400, points);
  Column(400, 400, points);
  EXPECT_EQ(points.size(), 1u);
}

TEST_F(LineTracingTest, RowStepsBoundARowButNotAColumn) {
  DrawGrid();
  PointList row, column;
  Row(400, 400, row, 121);
  EXPECT_EQ(CellsOf(row), (Cells{{2, 2}}));
  Column(400, 400, column, 121);
  EXPECT_EQ(column.size(), 5u);
}

// The centre of the start is found at 100.5, so that step t looks at y = 100 + t.
TEST_F(LineTracingTest, AColumnLooksFiveHundredStepsAhead) {
  for (const int y : {600, 601}) {  // the stroke across begins one pixel before
    image.Fill(0);
    DrawCross(image, 400, 100);
    DrawCross(image, 400, y);
    PointList points;
    Column(400, 100, points);
    ASSERT_FALSE(points.empty());
    ASSERT_EQ(Bits(points[0].y), Bits(100.5f));
    EXPECT_EQ(points.size(), y == 600 ? 2u : 1u) << y;
  }
}

TEST_F(LineTracingTest, ACrossCloserThan121StepsIsNeverFound) {
  DrawCrosses(image, {400, 510}, {400});
  PointList points;
  Row(400, 400, points);
  EXPECT_EQ(CellsOf(points), (Cells{{2, 2}}));
}

TEST_F(LineTracingTest, TheTargetsBorderEndsTheWalkInItsDirectionOnly) {
  DrawGrid();
  // To the right the walk from x = 400 must stay below step 122: it ends beyond x = 520.
  rowSpans.assign(rowSpans.size(), PixelSpan{0, 520 + 50});
  PointList points;
  Row(400, 400, points);
  EXPECT_EQ(CellsOf(points), (Cells{{2, 2}, {1, 2}, {0, 2}}));
}

// What the list holds already: the start, then the next cross of the walk.
class TakenCrossTest : public LineTracingTest {
 protected:
  TakenCrossTest() {
    DrawCrosses(image, {400, 550}, {400});
    PointList points;
    Row(400, 400, points);
    EXPECT_EQ(points.size(), 2u);
    next = points.back();
  }

  // How many points are traced when a list that ends with (x, y) exists.
  std::size_t TracedAfter(float x, float y) {
    PointList points = {At(x, y)};
    Row(400, 400, points);
    return points.size() - 1;
  }

  CalibrationPoint next;
};

TEST_F(TakenCrossTest, WithinThreePixelsOfThePointBeforeTheLastTheWalkEnds) {
  EXPECT_EQ(TracedAfter(next.x, next.y), 1u);
  EXPECT_EQ(TracedAfter(next.x - 2.9f, next.y + 2.9f), 1u);
}

TEST_F(TakenCrossTest, ThreePixelsInEitherAxisAreAnotherCross) {
  ASSERT_EQ(Bits(next.x - (next.x - 3.0f)), Bits(3.0f));
  EXPECT_EQ(TracedAfter(next.x - 3.0f, next.y), 2u);
  EXPECT_EQ(TracedAfter(next.x, next.y + 3.0f), 2u);
}

TEST_F(TakenCrossTest, OlderPointsAreNotLookedAt) {
  PointList points = {next, At(1.0f, 1.0f)};
  Row(400, 400, points);
  EXPECT_EQ(points.size(), 4u);
}

// The first walk counts all that the list holds, the second only its own points.
TEST_F(LineTracingTest, TheLimitOfTheFirstWalkCountsTheWholeList) {
  DrawGrid();
  const struct {
    std::size_t held;
    std::size_t traced;
  } cases[] = {{98, 5}, {99, 4}, {100, 4}, {200, 4}};
  for (const auto& c : cases) {
    PointList points(c.held, At(1.0f, 1.0f));
    Row(400, 400, points);
    EXPECT_EQ(points.size() - c.held, c.traced) << c.held;
  }
}

// The start cross has diagonal strokes that spare its centre, where they would disturb each other's
// fit: they are equally steep to the bit. The cross search reports the stroke of constant x + y
// first.
TEST_F(LineTracingTest, OfEquallySteepStrokesEachWalkFollowsItsOwn) {
  const auto drawDiagonals = [this](int x, int y, int from, int halfWidth) {
    for (int t = from; t <= 45; ++t) {
      for (const int dx : {t, -t}) {
        for (const int dy : {t, -t}) {
          DrawBox(image, x + dx - halfWidth, y + dy, x + dx + halfWidth, y + dy);
        }
      }
    }
  };
  drawDiagonals(400, 400, 3, 0);
  for (const int x : {250, 550}) {
    for (const int y : {250, 550}) {
      drawDiagonals(x, y, 0, 1);
    }
  }
  PointList row, column;
  Row(400, 400, row);
  EXPECT_EQ(CellsOf(row), (Cells{{2, 2}, {3, 3}, {1, 3}}));
  Column(400, 400, column);
  EXPECT_EQ(CellsOf(column), (Cells{{2, 2}, {1, 3}, {1, 1}}));
}

}  // namespace
}  // namespace quorvex::tests
