#include "grid/candidate_acceptance.h"

#include <cmath>
#include <utility>

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

bool AcceptsRowCandidate(PointList rowPoints, const CalibrationPoint& candidate) {
  return AcceptsCandidate(CurveAxis::kRow, std::move(rowPoints), candidate);
}

bool AcceptsColumnCandidate(PointList columnPoints, const CalibrationPoint& candidate) {
  return AcceptsCandidate(CurveAxis::kColumn, std::move(columnPoints), candidate);
}

}  // namespace quorvex
