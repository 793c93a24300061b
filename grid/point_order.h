// The two orders of a point list. Both sorts are stable.
#ifndef QUORVEX_GRID_POINT_ORDER_H_
#define QUORVEX_GRID_POINT_ORDER_H_

#include "base/calibration_point.h"

namespace quorvex {

enum SortDirection : int {
  kAscending = 1,
  kDescending = 2,
};

// Sorts by x, ascending.
void SortPointsByX(PointList& points);

// Sorts by y; any other value of the direction leaves the order as it is.
void SortPointsByY(PointList& points, SortDirection direction);

}  // namespace quorvex

#endif  // QUORVEX_GRID_POINT_ORDER_H_
