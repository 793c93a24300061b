// Selection of points by a field of the record.
#ifndef QUORVEX_GRID_POINT_SELECTION_H_
#define QUORVEX_GRID_POINT_SELECTION_H_

#include <algorithm>
#include <iterator>

#include "base/calibration_point.h"

namespace quorvex {

// The points whose field has the value, in list order.
inline PointList PointsWith(const PointList& points, int CalibrationPoint::*field, int value) {
  PointList selected;
  std::copy_if(points.begin(), points.end(), std::back_inserter(selected),
               [=](const CalibrationPoint& point) { return point.*field == value; });
  return selected;
}

}  // namespace quorvex

#endif  // QUORVEX_GRID_POINT_SELECTION_H_
