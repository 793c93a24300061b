// The two orders of a point list. Both sorts are stable.
#ifndef QUORVEX_GRID_POINT_ORDER_H_
#define QUORVEX_GRID_POINT_ORDER_H_

#include "base/calibration_point.h"

namespace quorvex {

constexpr int kAscending = 1;
constexpr int kDescending = 2;

// Sorts by x, ascending.
void SortPointsByX(PointList& points);

// Sorts by y; a direction other than kAscending and kDescending leaves the order as it is.
void SortPointsByY(PointList& points, int direction);

}  // namespace quorvex

#endif  // QUORVEX_GRID_POINT_ORDER_H_
