#include "crossmark/cross_lines.h"

#include <cmath>

#include "crossmark/line_intersection.h"

namespace quorvex {
namespace {

constexpr double kHalfTurn = 3.1415926;             // radians
constexpr double kQuarterTurn = 1.5707963;          // radians
constexpr double kAngleAbove = 0.5235987666666667;  // radians, 30 degrees

// The angle from one stroke to another, folded into a quarter turn to either side.
float FoldedDifference(float angle, float reference) {
  float difference = angle - reference;
  if (static_cast<double>(difference) > kQuarterTurn) {
    difference = static_cast<float>(kHalfTurn - static_cast<double>(difference));
  }
  if (static_cast<double>(difference) < -kQuarterTurn) {
    difference = static_cast<float>(static_cast<double>(difference) + kHalfTurn);
  }
  return difference;
}

}  // namespace

bool ChooseCrossLines(const LineSegmentList& segments, std::size_t& first, std::size_t& second) {
  first = 0;
  for (std::size_t i = 1; i < segments.size(); ++i) {
    if (segments[i].points.size() > segments[first].points.size()) {
      first = i;
    }
  }
  bool hasSecond = false;
  for (std::size_t i = 0; i < segments.size(); ++i) {
    const float difference = FoldedDifference(segments[i].angle, segments[first].angle);
    const bool qualifies = static_cast<double>(std::fabs(difference)) > kAngleAbove;
    if (qualifies && (!hasSecond || segments[i].points.size() > segments[second].points.size())) {
      second = i;
      hasSecond = true;
    }
  }
  return hasSecond;
}

bool SelectCrossLines(const LineSegmentList& segments, float& x, float& y, LineSegment& firstLine,
                      LineSegment& secondLine) {
  if (segments.size() < 2) {
    return false;
  }
  std::size_t first = 0;
  std::size_t second = 0;
  const bool hasSecond = ChooseCrossLines(segments, first, second);
  firstLine = segments[first];
  if (!hasSecond) {
    return false;
  }
  secondLine = segments[second];
  return IntersectLines(firstLine, secondLine, x, y);
}

}  // namespace quorvex
