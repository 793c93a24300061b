#include "grid/candidate_acceptance.h"

#include <cmath>

#include "base/rounding.h"
#include "grid/curve_axis.h"

namespace quorvex {
namespace {

bool AcceptsCandidate(CurveAxis axis, PointList points, const CalibrationPoint& candidate) {
  constexpr int kResidualLimit = 10;  // whole pixels
  points.push_back(candidate);
  QuadraticCoefficients curve;
  FitAxisCurve(axis, points, curve);
  int largest = 0;  // cut to whole pixels each time it is replaced
  for (const CalibrationPoint& point : points) {
    const float residual = std::fabs(SignedResidual(axis, point, curve));
    if (residual > static_cast<float>(largest)) {
      largest = TruncateToInt(residual);
    }
  }
  return largest < kResidualLimit;
}

}  // namespace

bool AcceptsRowCandidate(const PointList& rowPoints, const CalibrationPoint& candidate) {
  return AcceptsCandidate(CurveAxis::kRow, rowPoints, candidate);
}

bool AcceptsColumnCandidate(const PointList& columnPoints, const CalibrationPoint& candidate) {
  return AcceptsCandidate(CurveAxis::kColumn, columnPoints, candidate);
}

}  // namespace quorvex
