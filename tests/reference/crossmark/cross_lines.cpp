#include "tests/reference/crossmark.h"

#include <cmath>

namespace quorvex::plain {
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

bool SelectCrossLines(LineSegmentList segments, float& x, float& y, LineSegment& firstLine,
                      LineSegment& secondLine) {
  if (segments.size() < 2) {
    return false;
  }
  const LineSegment* first = &segments.front();
  for (const LineSegment& segment : segments) {
    if (segment.points.size() > first->points.size()) {
      first = &segment;
    }
  }
  firstLine = *first;
  const LineSegment* second = nullptr;
  for (const LineSegment& segment : segments) {
    const float difference = FoldedDifference(segment.angle, first->angle);
    const bool qualifies = static_cast<double>(std::fabs(difference)) > kAngleAbove;
    if (qualifies && (second == nullptr || segment.points.size() > second->points.size())) {
      second = &segment;
    }
  }
  if (second == nullptr) {
    return false;
  }
  secondLine = *second;
  return plain::IntersectLines(firstLine, secondLine, x, y);
}

}  // namespace quorvex::plain
