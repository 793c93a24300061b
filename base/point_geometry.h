// Distance and centroid of points in single precision.
#ifndef QUORVEX_BASE_POINT_GEOMETRY_H_
#define QUORVEX_BASE_POINT_GEOMETRY_H_

#include "base/calibration_point.h"

namespace quorvex {

// The distance of two points in pixels: squares and their sum in single precision, the root in
// double.
float PointDistance(const CalibrationPoint& from, const CalibrationPoint& to);

// The centroid of the points, summed in list order; a record of which only x and y are set. Both
// are NaN for an empty list.
CalibrationPoint CentreOfGravity(const PointList& points);

}  // namespace quorvex

#endif  // QUORVEX_BASE_POINT_GEOMETRY_H_
