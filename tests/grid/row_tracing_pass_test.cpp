#include "grid/row_tracing_pass.h"

#include <gtest/gtest.h>

#include "tests/support/point_lists.h"
#include "tests/support/points.h"
#include "tests/support/stroke_image.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr int kSize = 800;  // pixels

class RowTracingPassTest : public ::testing::Test {
 protected:
  RowTracingPassTest() { DrawCrosses(image, {100, 250, 400, 550, 700}, {100, 250, 400, 550, 700}); }

  bool Trace(const PointList& seeds, PointList& output, int columnSpan = 20, int rowSteps = 300) {
    return TraceRowsFromSeeds(image.Data(), kSize, kSize, 99, columnSpan, rowSteps, seeds,
                              FullSpans(kSize, kSize), FullSpans(kSize, kSize), output);
  }

  TemporaryDirectory directory;  // for the pictures of the cross search
  GrayImage image{kSize, kSize};
};

// Seeds down the third column, rows numbered from the largest y.
PointList Seeds(int count) {
  PointList seeds;
  for (int row = 0; row < count; ++row) {
    seeds.push_back(MakePoint(0, row, 2, 400.9f, 700.9f - 150.0f * static_cast<float>(row)));
  }
  return seeds;
}

TEST_F(RowTracingPassTest, LabelsTheRowsFromTheSeedsAndTheColumnsFromTheSeedColumn) {
  PointList points;
  EXPECT_TRUE(Trace(Seeds(5), points));
  ExpectPlacesOfFiveByFive(points);
}

TEST_F(RowTracingPassTest, ColumnSpanBoundsTheColumnsTowardsLargerX) {
  PointList points;
  EXPECT_TRUE(Trace(Seeds(5), points, 0));
  EXPECT_EQ(points.size(), 20u);  // two columns on the left, the seeds', one on the right
}

TEST_F(RowTracingPassTest, WithoutSeedsThereIsNothing) {
  PointList points = {MakePoint(77, 5, 6, 1.0f, 2.0f)};
  EXPECT_FALSE(Trace({}, points));
  EXPECT_EQ(points.size(), 1u);
}

// One seed has no column curve: it is zero, and x = 0 is no seed column.
TEST_F(RowTracingPassTest, OneSeedTracesOneRowThatHasNoColumn) {
  PointList points;
  EXPECT_FALSE(Trace(Seeds(1), points));
  EXPECT_TRUE(points.empty());
}

TEST_F(RowTracingPassTest, TwoSeedsOfOneRowNumberGiveThatRowOnly) {
  PointList seeds = Seeds(2);
  seeds[1].row = 0;
  PointList points = {MakePoint(77, 5, 6, 1.0f, 2.0f)};
  EXPECT_TRUE(Trace(seeds, points));
  ASSERT_EQ(points.size(), 3u);  // the seed column; one row number is too few for a step
  EXPECT_EQ(points[0].id, 77);
  EXPECT_EQ(points[1].row, 0);
  EXPECT_EQ(points[2].row, 0);
}

TEST_F(RowTracingPassTest, ANegativeRowNumberIsPassedOn) {
  PointList seeds = Seeds(5);
  seeds[1].row = -1;
  PointList points;
  EXPECT_TRUE(Trace(seeds, points));
  int negative = 0;
  for (const CalibrationPoint& point : points) {
    EXPECT_EQ(point.row, 4 - CellAt(point.y) == 1 ? -1 : 4 - CellAt(point.y));
    negative += point.row == -1 ? 1 : 0;
  }
  EXPECT_EQ(negative, 1);  // in the seed column; steps ask rows from 0 on
}

TEST_F(RowTracingPassTest, ASeedWithoutAMarkContributesNothing) {
  image = GrayImage(kSize, kSize);
  DrawCrosses(image, {100, 250, 400, 550, 700}, {400, 550, 700});
  PointList points;
  EXPECT_TRUE(Trace(Seeds(5), points));
  EXPECT_EQ(points.size(), 15u);
}

TEST_F(RowTracingPassTest, TheSeedColumnIsCleanedOfStrays) {
  PointList seeds = Seeds(5);
  seeds[2].x += 35.0f;  // still near its mark, but 18 pixels off the column of all five
  PointList points;
  EXPECT_TRUE(Trace(seeds, points));
  EXPECT_EQ(points.size(), 25u);
}

// A mark 30 pixels off its row is still found, but thrown out of the row.
TEST_F(RowTracingPassTest, TracedRowsAreCleanedOfStrays) {
  image = GrayImage(kSize, kSize);
  DrawCrosses(image, {100, 250, 400, 550, 700}, {100, 250, 550, 700});
  DrawCrosses(image, {100, 250, 400, 700}, {400});
  DrawCrosses(image, {550}, {430});
  PointList points;
  EXPECT_TRUE(Trace(Seeds(5), points));
  EXPECT_EQ(points.size(), 24u);
}

}  // namespace
}  // namespace quorvex::tests
