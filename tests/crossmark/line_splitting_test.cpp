#include "crossmark/line_splitting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "crossmark/line_fit.h"
#include "tests/support/lines.h"

namespace quorvex::tests {
namespace {

LineSegmentList SegmentsOf(const std::vector<PointFList>& pointLists) {
  LineSegmentList segments;
  SplitLineSegments(LinesThrough(pointLists), segments);
  return segments;
}

// The same points, their x moved by `shift`.
PointFList Shifted(PointFList points, float shift) {
  for (PointF& point : points) {
    point.x += shift;
  }
  return points;
}

TEST(SortPointsByU, SortsByTheFirstCoordinateAndKeepsEquals) {
  const PointFList points = {
      {3.0f, 1.0f}, {-1.0f, 2.0f}, {3.0f, 0.0f}, {2.0f, 4.0f}, {-1.0f, 1.0f}};
  PointFList sorted(points.size());
  SortPointsByU(points, sorted.data());
  EXPECT_EQ(BitsOf(sorted),
            BitsOf({{-1.0f, 2.0f}, {-1.0f, 1.0f}, {2.0f, 4.0f}, {3.0f, 1.0f}, {3.0f, 0.0f}}));
}

TEST(SortPointsByU, WritesNoMoreThanTheListHolds) {
  PointF output[2] = {{7.0f, 8.0f}, {7.0f, 8.0f}};
  SortPointsByU({}, output);
  EXPECT_EQ(output[0].x, 7.0f);
  SortPointsByU({{1.0f, 2.0f}}, output);
  EXPECT_EQ(output[0].x, 1.0f);
  EXPECT_EQ(output[0].y, 2.0f);
  EXPECT_EQ(output[1].x, 7.0f);
}

TEST(RotatePointsBack, AppendsTheTurnedAndShiftedPointsInOrder) {
  PointFList output = {{9.0f, 9.0f}};
  RotatePointsBack({{3.0f, 4.0f}, {-1.0f, 2.0f}}, 0.0f, 10.0f, 20.0f, output);
  EXPECT_EQ(BitsOf(output), BitsOf(PointFList{{9.0f, 9.0f}, {13.0f, 24.0f}, {9.0f, 22.0f}}));
}

TEST(RotatePointsBack, PositiveAngleTurnsTheSecondAxisIntoTheFirst) {
  PointFList output;
  RotatePointsBack({{0.0f, 4.0f}, {4.0f, 0.0f}}, 1.5707963f, 0.0f, 0.0f, output);
  EXPECT_EQ(output[0].x, 4.0f);
  EXPECT_EQ(output[1].y, -4.0f);
}

TEST(RotatePointsBack, ComputesInDoubleAndNarrowsOnce) {
  std::mt19937 random(3);
  for (int n = 0; n < 200; ++n) {
    const float u = RandomFloat(random, -150.0f, 150.0f);
    const float v = RandomFloat(random, -3.0f, 3.0f);
    const float angle = RandomFloat(random, -1.6f, 1.6f);
    const float x0 = RandomFloat(random, 0.0f, 200.0f);
    const float y0 = RandomFloat(random, 0.0f, 200.0f);
    const double phi = angle;
    const volatile double x[] = {std::cos(phi) * u, std::sin(phi) * v};
    const volatile double y[] = {std::cos(phi) * v, std::sin(phi) * u};
    const volatile double turnedX = x[0] + x[1];
    const volatile double turnedY = y[0] - y[1];
    PointFList output;
    RotatePointsBack({{u, v}}, angle, x0, y0, output);
    EXPECT_EQ(Bits(output[0].x), Bits(static_cast<float>(turnedX + x0))) << "point " << n;
    EXPECT_EQ(Bits(output[0].y), Bits(static_cast<float>(turnedY + y0))) << "point " << n;
  }
}

TEST(SplitLineSegments, LineOfFewerThanTwoPointsGivesNoSegment) {
  EXPECT_TRUE(SegmentsOf({{}}).empty());
  EXPECT_TRUE(SegmentsOf({{{50.0f, 60.0f}}}).empty());
  EXPECT_TRUE(SegmentsOf({}).empty());
}

TEST(SplitLineSegments, LineOfFewerThanTwoPointsDoesNotStopTheOthers) {
  EXPECT_EQ(SegmentsOf({{}, RowPoints(50.0f, 0, 40)}).size(), 1u);
}

TEST(SplitLineSegments, OneStrokeIsHandedOnWithItsEnds) {
  const PointFList points = RowPoints(50.0f, 10, 60);
  const LineSegmentList segments = SegmentsOf({points});
  ASSERT_EQ(segments.size(), 1u);
  EXPECT_EQ(BitsOf(segments[0].points), BitsOf(points));
  EXPECT_EQ(BitsOf(PointFList{segments[0].start, segments[0].end}),
            BitsOf(PointFList{{10.0f, 50.0f}, {60.0f, 50.0f}}));
}

TEST(SplitLineSegments, GapOfElevenPixelsSplits) {
  const LineSegmentList segments =
      SegmentsOf({Joined(RowPoints(50.0f, 0, 40), RowPoints(50.0f, 51, 91))});
  ASSERT_EQ(segments.size(), 2u);
  EXPECT_EQ(BitsOf(segments[0].points), BitsOf(RowPoints(50.0f, 0, 40)));
  EXPECT_EQ(BitsOf(segments[1].points), BitsOf(RowPoints(50.0f, 51, 91)));
}

TEST(SplitLineSegments, GapOfExactlyTenPixelsDoesNotSplit) {
  EXPECT_EQ(SegmentsOf({Joined(RowPoints(50.0f, 0, 40), RowPoints(50.0f, 50, 90))}).size(), 1u);
}

TEST(SplitLineSegments, GapJustAboveTenPixelsSplits) {
  const PointFList behind = Shifted(RowPoints(50.0f, 50, 90), 1.0f / 131072);
  EXPECT_EQ(SegmentsOf({Joined(RowPoints(50.0f, 0, 40), behind)}).size(), 2u);
}

TEST(SplitLineSegments, RunOfExactlyThirtyPixelsIsDropped) {
  EXPECT_TRUE(SegmentsOf({RowPoints(50.0f, 0, 30)}).empty());
  EXPECT_TRUE(SegmentsOf({ColumnPoints(50.0f, 0, 30)}).empty());
}

TEST(SplitLineSegments, RunJustAboveThirtyPixelsIsKept) {
  PointFList points = RowPoints(50.0f, 0, 30);
  points.front().x -= 1.0f / 524288;  // the mean stays exact: both ends move apart
  points.back().x += 1.0f / 524288;
  EXPECT_EQ(SegmentsOf({points}).size(), 1u);
}

TEST(SplitLineSegments, ShortRunIsDroppedBesideALongOne) {
  const LineSegmentList segments =
      SegmentsOf({Joined(RowPoints(50.0f, 0, 20), RowPoints(50.0f, 40, 80))});
  ASSERT_EQ(segments.size(), 1u);
  EXPECT_EQ(segments[0].start.x, 40.0f);
}

TEST(SplitLineSegments, GapsAcrossTheLineCountToo) {
  // Two rows twelve pixels apart: along the line neighbours alternate between them.
  const PointFList points = Joined(RowPoints(50.0f, 0, 80), RowPoints(62.0f, 0, 80));
  EXPECT_TRUE(SegmentsOf({points}).empty());
}

TEST(SplitLineSegments, DistancesAreFormedInSinglePrecision) {
  // The halves are 10 pixels apart along the line and some 0.0002 across it: the sum of squares is
  // 100 in float and more than that in double.
  PointFList behind = RowPoints(50.0f + 1.0f / 4096, 50, 90);
  EXPECT_EQ(SegmentsOf({Joined(RowPoints(50.0f, 0, 40), behind)}).size(), 1u);
}

TEST(SplitLineSegments, SegmentsOfALineCarryTheFitOfTheWholeLine) {
  // Two strokes with a step between them: neither has the line's slope.
  const PointFList points = Joined(RowPoints(50.0f, 0, 40), RowPoints(51.0f, 60, 100));
  float a = 0.0f;
  float b = 0.0f;
  float c = 0.0f;
  float angle = 0.0f;
  ASSERT_TRUE(FitLine(points, a, b, c, angle));
  ASSERT_NE(angle, 0.0f);
  const LineSegmentList segments = SegmentsOf({points});
  ASSERT_EQ(segments.size(), 2u);
  for (const LineSegment& segment : segments) {
    EXPECT_EQ(BitsOf(std::vector<float>{segment.a, segment.b, segment.c, segment.angle}),
              BitsOf(std::vector<float>{a, b, c, angle}));
  }
}

TEST(SplitLineSegments, SegmentsFollowTheLinesAndThenThePlaceAlongThem) {
  const LineSegmentList segments =
      SegmentsOf({Joined(RowPoints(70.0f, 80, 120), RowPoints(70.0f, 0, 40)),
                  ColumnPoints(10.0f, 0, 50), RowPoints(20.0f, 0, 50)});
  ASSERT_EQ(segments.size(), 4u);
  EXPECT_EQ(segments[0].start.x, 0.0f);
  EXPECT_EQ(segments[1].start.x, 80.0f);
  EXPECT_EQ(segments[2].angle, 1.5707963f);
  EXPECT_EQ(segments[3].start.y, 20.0f);
}

TEST(SplitLineSegments, SegmentsAreAppended) {
  LineSegmentList lines(1);
  lines[0].points = RowPoints(50.0f, 0, 40);
  LineSegmentList segments(1);
  SplitLineSegments(lines, segments);
  ASSERT_EQ(segments.size(), 2u);
  EXPECT_TRUE(segments[0].points.empty());
}

TEST(SplitLineSegments, FallingStrokeRunsFromItsLeftEnd) {
  PointFList points;
  for (int n = 0; n < 50; ++n) {
    points.push_back({static_cast<float>(100 - n), static_cast<float>(20 + n)});
  }
  const LineSegmentList segments = SegmentsOf({points});
  ASSERT_EQ(segments.size(), 1u);
  EXPECT_LT(segments[0].start.x, segments[0].end.x);
  EXPECT_GT(segments[0].start.y, segments[0].end.y);
}

// One gap-free stroke turned into the line's frame, sorted and turned back, operation by operation.
PointFList TurnedThereAndBack(const PointFList& points) {
  float a, b, c, angle;
  EXPECT_TRUE(FitLine(points, a, b, c, angle));
  double sumX = 0.0;
  double sumY = 0.0;
  for (const PointF& point : points) {
    sumX += point.x;
    sumY += point.y;
  }
  const float x0 = static_cast<float>(sumX / static_cast<double>(points.size()));
  const float y0 = static_cast<float>(sumY / static_cast<double>(points.size()));
  const double theta = angle;
  PointFList turned;
  for (const PointF& point : points) {
    const volatile double dx = static_cast<double>(point.x) - x0;
    const volatile double dy = static_cast<double>(point.y) - y0;
    const volatile double terms[] = {std::cos(theta) * dx, std::sin(theta) * dy,
                                     std::cos(theta) * dy, std::sin(theta) * dx};
    turned.push_back(
        {static_cast<float>(terms[0] + terms[1]), static_cast<float>(terms[2] - terms[3])});
  }
  std::stable_sort(turned.begin(), turned.end(),
                   [](PointF left, PointF right) { return left.x < right.x; });
  PointFList back;
  for (const PointF& point : turned) {
    // cos(-theta) and sin(-theta), as the inverse turn has them.
    const volatile double terms[] = {std::cos(-theta) * point.x, std::sin(-theta) * point.y,
                                     std::cos(-theta) * point.y, std::sin(-theta) * point.x};
    const volatile double x = terms[0] + terms[1];
    const volatile double y = terms[2] - terms[3];
    back.push_back({static_cast<float>(x + x0), static_cast<float>(y + y0)});
  }
  return back;
}

TEST(SplitLineSegments, PointsAreTurnedInDoubleAndKeptInFloat) {
  std::mt19937 random(4);
  for (int n = 0; n < 60; ++n) {
    // Points every pixel or so along a line of any direction, up to a pixel beside it, and partly
    // so near to the axes that the restored points are finer than the turned ones.
    const double direction = n * 0.05235;
    PointFList points;
    for (int t = -40; t <= 40; ++t) {
      const float x = static_cast<float>(35.0 + t * std::cos(direction));
      const float y = static_cast<float>(30.0 + t * std::sin(direction));
      points.push_back(
          {x + RandomFloat(random, -1.0f, 1.0f), y + RandomFloat(random, -1.0f, 1.0f)});
    }
    std::shuffle(points.begin(), points.end(), random);
    const LineSegmentList segments = SegmentsOf({points});
    ASSERT_EQ(segments.size(), 1u) << "line " << n;
    EXPECT_EQ(BitsOf(segments[0].points), BitsOf(TurnedThereAndBack(points))) << "line " << n;
    EXPECT_EQ(Bits(segments[0].start.x), Bits(segments[0].points.front().x));
    EXPECT_EQ(Bits(segments[0].end.y), Bits(segments[0].points.back().y));
  }
}

}  // namespace
}  // namespace quorvex::tests
