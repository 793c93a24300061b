#include "grid/curve_axis.h"

#include <utility>

namespace quorvex {

bool FitAxisCurve(CurveAxis axis, PointList points, QuadraticCoefficients& curve) {
  if (axis == CurveAxis::kColumn) {
    for (CalibrationPoint& point : points) {
      std::swap(point.x, point.y);
    }
  }
  return FitQuadraticCurve(std::move(points), curve);
}

float SignedResidual(CurveAxis axis, const CalibrationPoint& point,
                     const QuadraticCoefficients& curve) {
  return axis == CurveAxis::kRow ? point.y - EvaluateCurve(curve, point.x)
                                 : point.x - EvaluateCurve(curve, point.y);
}

}  // namespace quorvex
