// The largest value of an integer field of the record over a list of points.
#ifndef QUORVEX_BASE_LARGEST_FIELD_H_
#define QUORVEX_BASE_LARGEST_FIELD_H_

#include <algorithm>

#include "base/calibration_point.h"

namespace quorvex {

// `lowest` for an empty list, and never less than it.
inline int LargestField(const PointList& points, int CalibrationPoint::*field, int lowest) {
  int largest = lowest;
  for (const CalibrationPoint& point : points) {
    largest = std::max(largest, point.*field);
  }
  return largest;
}

}  // namespace quorvex

#endif  // QUORVEX_BASE_LARGEST_FIELD_H_
