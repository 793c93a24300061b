#include "grid/curve_axis.h"

#include <utility>

namespace quorvex {

bool FitAxisCurve(CurveAxis axis, const PointList& points, QuadraticCoefficients& curve) {
  if (axis == CurveAxis::kRow) {
    return FitQuadraticCurve(points, curve);
  }
  PointList exchanged = points;
  for (CalibrationPoint& point : exchanged) {
    std::swap(point.x, point.y);
  }
  return FitQuadraticCurve(exchanged, curve);
}

float SignedResidual(CurveAxis axis, const CalibrationPoint& point,
                     const QuadraticCoefficients& curve) {
  return axis == CurveAxis::kRow ? point.y - EvaluateCurve(curve, point.x)
                                 : point.x - EvaluateCurve(curve, point.y);
}

}  // namespace quorvex
