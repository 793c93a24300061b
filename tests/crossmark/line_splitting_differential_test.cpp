#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string>

#include "crossmark/line_splitting.h"
#include "tests/reference/crossmark.h"
#include "tests/support/differential.h"
#include "tests/support/float_difference.h"

namespace quorvex::tests {
namespace {

std::string SameOrderAlsoOfTiesAndNaN(CaseRandom& random) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  const int kinds = random.OneOf({2, 5, 100});
  const bool hasNaN = random.OneIn(2);
  PointFList points;
  for (int i = random.Below(60); i > 0; --i) {
    const float x = static_cast<float>(random.Below(kinds)) - 1.0f;
    const bool isSpecial = hasNaN && random.OneIn(6);
    const float special = random.OneOf({kNaN, -kNaN, kInfinity, -kInfinity, 0.0f, -0.0f});
    // y tells the points apart.
    points.push_back({isSpecial ? special : x, static_cast<float>(i)});
  }
  PointFList plainSorted(points.size());
  PointFList fastSorted(points.size());
  plain::SortPointsByU(points, plainSorted.data());
  SortPointsByU(points, fastSorted.data());
  return PointsDifference("sorted", plainSorted, fastSorted);
}
DIFFERENTIAL_TEST(LineSplittingDifferentialTest, SameOrderAlsoOfTiesAndNaN, kCases);

std::string SameRotation(CaseRandom& random) {
  PointFList points;
  for (int i = random.Below(5); i > 0; --i) {
    const float x = random.Fraction(-300, 300);
    points.push_back({x, random.Fraction(-300, 300)});
  }
  const float angle = random.Fraction(-4, 4) * 1.0009f;
  const float x0 = random.Fraction(0, 200);
  const float y0 = random.Fraction(0, 200);
  PointFList plainOutput(1, PointF{1.0f, 2.0f});
  PointFList fastOutput = plainOutput;
  plain::RotatePointsBack(points, angle, x0, y0, plainOutput);
  RotatePointsBack(points, angle, x0, y0, fastOutput);
  return PointsDifference("rotated", plainOutput, fastOutput);
}
DIFFERENTIAL_TEST(LineSplittingDifferentialTest, SameRotation, kCases);

// Points along a line with gaps of about 10 pixels, in runs of about 30.
LineSegment RandomLine(CaseRandom& random) {
  const int x = random.Below(200);
  const int y = random.Below(200);
  const int dx = random.OneOf({0, 1, 1, 3, 4, random.Between(-7, 7)});
  const int dy = random.OneOf({0, 1, 1, 4, 3, random.Between(-7, 7)});
  LineSegment line;
  int along = 0;
  for (int i = random.Below(70); i > 0; --i) {
    along += random.OneIn(12) ? random.OneOf({2, 5, 9, 10, 11, 30}) : random.Below(2);
    const int across = random.OneIn(3) ? random.Between(-1, 1) : 0;
    const int length = std::max({std::abs(dx), std::abs(dy), 1});
    line.points.push_back({static_cast<float>(x + along * dx / length - across * (dy != 0)),
                           static_cast<float>(y + along * dy / length + across * (dx != 0))});
  }
  if (random.OneIn(4)) {
    std::reverse(line.points.begin(), line.points.end());
  }
  return line;
}

std::string SameSegments(CaseRandom& random) {
  LineSegmentList lines;
  for (int i = random.Below(5); i > 0; --i) {
    lines.push_back(RandomLine(random));
  }
  LineSegmentList plainSegments(1);
  LineSegmentList fastSegments(1);
  plain::SplitLineSegments(lines, plainSegments);
  SplitLineSegments(lines, fastSegments);
  return LinesDifference(plainSegments, fastSegments);
}
DIFFERENTIAL_TEST(LineSplittingDifferentialTest, SameSegments, kCases);

}  // namespace
}  // namespace quorvex::tests
