// Distance, centroid and nearness of points in single precision.
#ifndef QUORVEX_BASE_POINT_GEOMETRY_H_
#define QUORVEX_BASE_POINT_GEOMETRY_H_

#include <cmath>

#include "base/calibration_point.h"

namespace quorvex {

// The distance of two points in pixels: squares and their sum in single precision, the root in
// double.
inline float PointDistance(const CalibrationPoint& from, const CalibrationPoint& to) {
  const float dx = to.x - from.x;
  const float dy = to.y - from.y;
  return static_cast<float>(std::sqrt(static_cast<double>(dx * dx + dy * dy)));
}

// The centroid of the points, summed in list order; a record of which only x and y are set. Both
// are NaN for an empty list.
CalibrationPoint CentreOfGravity(const PointList& points);

// Whether a point lies inside the square that reaches `reach` pixels from (x, y) to each side; its
// border does not count.
inline bool IsInSquare(const CalibrationPoint& point, float x, float y, float reach) {
  return point.x > x - reach && point.x < x + reach && point.y > y - reach && point.y < y + reach;
}

}  // namespace quorvex

#endif  // QUORVEX_BASE_POINT_GEOMETRY_H_
