#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "crossmark/cross_lines.h"
#include "tests/reference/crossmark.h"
#include "tests/support/differential.h"
#include "tests/support/float_difference.h"

namespace quorvex::tests {
namespace {

// Angles on both sides of a quarter turn and of 30 degrees apart, and numbers of points that tie.
LineSegment RandomSegment(CaseRandom& random) {
  constexpr float kThirtyDegrees = 0.5235988f;  // radians
  constexpr float kQuarterTurn = 1.5707963f;    // radians
  LineSegment segment;
  const float angle = random.OneOf({0.0f, kThirtyDegrees, kQuarterTurn, -kQuarterTurn,
                                    kQuarterTurn - kThirtyDegrees, random.Fraction(-2, 2)});
  segment.angle = random.OneIn(3) ? std::nextafter(angle, random.OneOf({-4.0f, 4.0f})) : angle;
  const float direction = random.OneIn(8) ? 0.0f : segment.angle;
  segment.a = std::sin(direction);
  segment.b = -std::cos(direction);
  segment.c = random.Fraction(-200, 200);
  for (int i = random.Between(0, 4); i > 0; --i) {
    const float x = random.Fraction(0, 200);
    segment.points.push_back({x, random.Fraction(0, 200)});
  }
  return segment;
}

std::string SameLinesAndCrossing(CaseRandom& random) {
  LineSegmentList segments;
  for (int i = random.Below(7); i > 0; --i) {
    segments.push_back(RandomSegment(random));
  }
  PointF plainCrossing{-1.0f, -1.0f};
  PointF fastCrossing = plainCrossing;
  LineSegment plainLines[2];
  LineSegment fastLines[2];
  const bool plainResult = plain::SelectCrossLines(segments, plainCrossing.x, plainCrossing.y,
                                                   plainLines[0], plainLines[1]);
  const bool fastResult =
      SelectCrossLines(segments, fastCrossing.x, fastCrossing.y, fastLines[0], fastLines[1]);
  if (plainResult != fastResult) {
    return std::string(fastResult ? "found" : "not found");
  }
  if (!plainResult) {
    return std::string();  // the results mean nothing
  }
  const std::string difference = PointDifference("crossing", plainCrossing, fastCrossing);
  return difference.empty()
             ? LinesDifference({plainLines[0], plainLines[1]}, {fastLines[0], fastLines[1]})
             : difference;
}
DIFFERENTIAL_TEST(CrossLinesDifferentialTest, SameLinesAndCrossing, kCases);

}  // namespace
}  // namespace quorvex::tests
