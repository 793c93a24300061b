// Rows and columns of the grid are twins that differ in which coordinate is the argument of the
// curve. The grid stages are written once over this axis.
#ifndef QUORVEX_GRID_CURVE_AXIS_H_
#define QUORVEX_GRID_CURVE_AXIS_H_

#include "base/calibration_point.h"
#include "grid/curve_fit.h"

namespace quorvex {

enum class CurveAxis {
  kRow,     // curves are y of x
  kColumn,  // curves are x of y
};

// Fits a curve of that axis; results as FitQuadraticCurve.
bool FitAxisCurve(CurveAxis axis, const PointList& points, QuadraticCoefficients& curve);

// How far the point lies beyond the curve, towards larger y of a row or larger x of a column;
// pixels.
float SignedResidual(CurveAxis axis, const CalibrationPoint& point,
                     const QuadraticCoefficients& curve);

}  // namespace quorvex

#endif  // QUORVEX_GRID_CURVE_AXIS_H_
