#include "base/point_geometry.h"

namespace quorvex {

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
