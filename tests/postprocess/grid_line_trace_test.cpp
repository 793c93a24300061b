#include "postprocess/grid_line_trace.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include "base/point_geometry.h"
#include "tests/support/points.h"
#include "tests/support/reserved_bytes.h"

namespace quorvex::tests {
namespace {

// The x of the points that the trace from (back, 0) through (0, 0) appends.
std::vector<float> Traced(float back, const PointList& points) {
  CalibrationPoint previous = At(back, 0.0f);
  CalibrationPoint current = At(0.0f, 0.0f);
  PointList output;
  TraceGridLine(points, previous, current, output);
  std::vector<float> xs;
  for (const CalibrationPoint& point : output) {
    xs.push_back(point.x);
  }
  return xs;
}

bool IsTraced(float back, float x, float y) { return !Traced(back, {At(x, y)}).empty(); }

TEST(TraceGridLine, FollowsALineOfShrinkingSteps) {
  EXPECT_EQ(Traced(-100.0f, {At(170.0f, 0.0f), At(90.0f, 0.0f), At(220.0f, 0.0f)}),
            (std::vector<float>{90.0f, 170.0f, 220.0f}));
}

TEST(TraceGridLine, PreviousAndCurrentMoveAlong) {
  CalibrationPoint previous = At(-100.0f, 0.0f);
  CalibrationPoint current = At(0.0f, 0.0f);
  PointList output;
  TraceGridLine({At(90.0f, 0.0f), At(170.0f, 0.0f)}, previous, current, output);
  EXPECT_EQ(Bits(previous.x), Bits(90.0f));
  EXPECT_EQ(Bits(current.x), Bits(170.0f));
}

TEST(TraceGridLine, PreviousAndCurrentStayWhereNothingIsFound) {
  CalibrationPoint previous = At(-100.0f, 0.0f);
  CalibrationPoint current = At(0.0f, 0.0f);
  PointList output;
  TraceGridLine({}, previous, current, output);
  EXPECT_EQ(Bits(previous.x), Bits(-100.0f));
  EXPECT_EQ(Bits(current.x), Bits(0.0f));
  EXPECT_TRUE(output.empty());
}

TEST(TraceGridLine, AppendsWholeRecordsToWhatTheOutputHolds) {
  const PointList points = {Marked(MakePoint(3, 4, 5, 90.0f, 0.0f), 50)};
  CalibrationPoint previous = At(-100.0f, 0.0f);
  CalibrationPoint current = At(0.0f, 0.0f);
  PointList output = {At(1.0f, 2.0f)};
  TraceGridLine(points, previous, current, output);
  ASSERT_EQ(output.size(), 2u);
  EXPECT_EQ(Bits(output[0].x), Bits(1.0f));
  EXPECT_EQ(std::memcmp(&output[1], points.data(), sizeof points[0]), 0);
}

TEST(TraceGridLine, AnEquallyLongStepEndsTheTrace) {
  EXPECT_TRUE(IsTraced(-100.0f, std::nextafter(100.0f, 0.0f), 0.0f));
  EXPECT_FALSE(IsTraced(-100.0f, 100.0f, 0.0f));
  EXPECT_FALSE(IsTraced(-100.0f, std::nextafter(100.0f, 200.0f), 0.0f));
  EXPECT_EQ(Traced(-100.0f, {At(90.0f, 0.0f), At(180.0f, 0.0f)}), std::vector<float>{90.0f});
}

TEST(TraceGridLine, TheNearestPointAheadIsTaken) {
  EXPECT_EQ(Traced(-100.0f, {At(90.0f, 0.0f), At(80.0f, 20.0f), At(85.0f, 0.0f)}),
            (std::vector<float>{80.0f}));
}

TEST(TraceGridLine, OfEquallyNearPointsTheFirstIsTaken) {
  CalibrationPoint previous = At(-100.0f, 0.0f);
  CalibrationPoint current = At(0.0f, 0.0f);
  PointList output;
  TraceGridLine({At(80.0f, 21.0f), At(80.0f, -20.0f), At(80.0f, 20.0f)}, previous, current, output);
  ASSERT_EQ(output.size(), 1u);
  EXPECT_EQ(Bits(output[0].y), Bits(-20.0f));
}

// 362 / 209 lies just above the root of 3 (29.9999 degrees off the straight line), 265 / 153 just
// below it (30.0004 degrees).
TEST(TraceGridLine, TheNextPointLiesWithinThirtyDegreesOfStraightAhead) {
  for (const float side : {-1.0f, 1.0f}) {
    EXPECT_TRUE(IsTraced(-500.0f, 362.0f, side * 209.0f));
    EXPECT_FALSE(IsTraced(-500.0f, 265.0f, side * 153.0f));
  }
  EXPECT_FALSE(IsTraced(-200.0f, -100.0f, 0.0f));
  EXPECT_FALSE(IsTraced(-200.0f, 0.0f, 100.0f));
}

TEST(TraceGridLine, TheDirectionTurnsWithTheLine) {
  // Each step turns by 20 degrees: the third would lie 60 degrees off the first direction.
  PointList points;
  float x = 0.0f;
  float y = 0.0f;
  for (int step = 1; step <= 4; ++step) {
    const double turned = step * 20.0 * 3.141592653589793 / 180.0;
    const double length = 100.0 - 5.0 * step;
    x += static_cast<float>(length * std::cos(turned));
    y += static_cast<float>(length * std::sin(turned));
    points.push_back(At(x, y));
  }
  EXPECT_EQ(Traced(-100.0f, points).size(), 4u);
}

// The length ahead, 248.53125, is a float, so the cosine is -215.234375 / 248.53125, that of
// 149.9999995 degrees. The factor 57.29578049 makes them 150.000002.
TEST(TraceGridLine, TheFactorToDegreesIsThatOfACutPi) {
  constexpr float kAhead = 215.234375f;
  constexpr float kAside = 124.265625f;
  ASSERT_EQ(Bits(PointDistance(At(0.0f, 0.0f), At(kAhead, kAside))), Bits(248.53125f));
  EXPECT_TRUE(IsTraced(-249.0f, kAhead, kAside));
}

TEST(TraceGridLine, PointsWithinTenPixelsOfTheCurrentOneAreSkipped) {
  EXPECT_FALSE(IsTraced(-100.0f, 10.0f, 0.0f));
  EXPECT_FALSE(IsTraced(-100.0f, 10.0f, 5.0f));
  EXPECT_TRUE(IsTraced(-100.0f, std::nextafter(10.0f, 11.0f), 0.0f));
}

TEST(TraceGridLine, TenPixelsAreMeasuredInEachAxis) {
  // A diagonal step of 10 and 10 pixels is 14 pixels long and skipped all the same.
  CalibrationPoint previous = At(-50.0f, -50.0f);
  CalibrationPoint current = At(0.0f, 0.0f);
  PointList output;
  TraceGridLine({At(10.0f, 10.0f)}, previous, current, output);
  EXPECT_TRUE(output.empty());
  TraceGridLine({At(10.0f, 10.5f)}, previous, current, output);
  EXPECT_EQ(output.size(), 1u);
}

TEST(TraceGridLine, AStepIsShorterThanThousandPixels) {
  EXPECT_FALSE(IsTraced(-5000.0f, 1000.0f, 0.0f));
  EXPECT_TRUE(IsTraced(-5000.0f, std::nextafter(1000.0f, 0.0f), 0.0f));
}

TEST(TraceGridLine, ALongLastStepDoesNotContinueWhereNothingQualifies) {
  EXPECT_TRUE(Traced(-5000.0f, {}).empty());
  EXPECT_TRUE(Traced(-5000.0f, {At(0.0f, 300.0f)}).empty());
}

TEST(TraceGridLine, WithoutADirectionThereIsNothingAhead) {
  EXPECT_TRUE(Traced(0.0f, {At(50.0f, 0.0f), At(-50.0f, 0.0f)}).empty());
}

TEST(TraceGridLine, TakesHundredStepsAtTheMost) {
  // Steps of 39.9, 39.8, ... pixels, 120 of them.
  PointList points;
  float x = 0.0f;
  for (int step = 1; step <= 120; ++step) {
    x += 40.0f - 0.1f * static_cast<float>(step);
    points.push_back(At(x, 0.0f));
  }
  const std::vector<float> traced = Traced(-40.0f, points);
  ASSERT_EQ(traced.size(), 100u);
  EXPECT_EQ(Bits(traced.back()), Bits(points[99].x));
}

TEST(TraceGridLine, PointsThatAreNotNumbersAreSkipped) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(Traced(-100.0f, {At(nan, 0.0f), At(50.0f, nan), At(90.0f, 0.0f)}),
            std::vector<float>{90.0f});
}

}  // namespace
}  // namespace quorvex::tests
