#include "grid/point_order.h"

#include "base/stable_sort.h"

namespace quorvex {

void SortPointsByX(PointList& points) {
  SortAscending(points, [](const CalibrationPoint& point) { return point.x; });
}

void SortPointsByY(PointList& points, SortDirection direction) {
  const auto y = [](const CalibrationPoint& point) { return point.y; };
  if (direction == kAscending) {
    SortAscending(points, y);
  } else if (direction == kDescending) {
    SortDescending(points, y);
  }
}

}  // namespace quorvex
