#include "base/point_geometry.h"

#include <cmath>

namespace quorvex {

float PointDistance(const CalibrationPoint& from, const CalibrationPoint& to) {
  const float dx = to.x - from.x;
  const float dy = to.y - from.y;
  return static_cast<float>(std::sqrt(static_cast<double>(dx * dx + dy * dy)));
}

CalibrationPoint CentreOfGravity(const PointList& points) {
  CalibrationPoint centre = {};
  for (const CalibrationPoint& point : points) {
    centre.x += point.x;
    centre.y += point.y;
  }
  const float count = static_cast<float>(points.size());
  centre.x /= count;
  centre.y /= count;
  return centre;
}

}  // namespace quorvex
