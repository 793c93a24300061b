#include "grid/outlier_rejection.h"

#include <cmath>
#include <cstddef>
#include <utility>

namespace quorvex {
namespace {

constexpr float kWorstMean = 100.0f;   // pixels, where the search for the best removal starts
constexpr double kAcceptedMean = 2.0;  // pixels, below which a removal ends the rejection

void RemoveAt(PointList& points, std::size_t index) {
  points.erase(points.begin() + static_cast<std::ptrdiff_t>(index));
}

bool FitMaxResidual(CurveAxis axis, const PointList& points, QuadraticCoefficients& curve,
                    float& largest, int& index) {
  if (points.size() < 2) {
    return false;
  }
  FitAxisCurve(axis, points, curve);
  largest = 0.0f;
  index = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const float residual = std::fabs(SignedResidual(axis, points[i], curve));
    if (residual > largest) {
      largest = residual;
      index = static_cast<int>(i);
    }
  }
  return true;
}

float FitMeanResidual(CurveAxis axis, const PointList& points) {
  if (points.size() < 2) {
    return 0.0f;
  }
  QuadraticCoefficients curve;
  FitAxisCurve(axis, points, curve);
  float sum = 0.0f;
  for (const CalibrationPoint& point : points) {
    sum += std::fabs(SignedResidual(axis, point, curve));
  }
  return sum / static_cast<float>(points.size());
}

// The point whose removal leaves the best fit, the first of equals, and that fit's mean residual.
struct BestRemoval {
  std::size_t index = 0;
  float mean = kWorstMean;
};

BestRemoval FindBestRemoval(CurveAxis axis, const PointList& points) {
  BestRemoval best;
  for (std::size_t i = 0; i < points.size(); ++i) {
    PointList remaining = points;
    RemoveAt(remaining, i);
    const float mean = FitMeanResidual(axis, remaining);
    if (best.mean > mean) {
      best = {i, mean};
    }
  }
  return best;
}

}  // namespace

bool RejectOutliers(CurveAxis axis, PointList& points, float tolerance,
                    QuadraticCoefficients& curve) {
  float largest = 0.0f;
  int worst = 0;
  if (!FitMaxResidual(axis, points, curve, largest, worst)) {
    return false;
  }
  if (tolerance > largest) {
    return true;
  }
  while (!points.empty()) {
    const BestRemoval best = FindBestRemoval(axis, points);
    const bool isAccepted = static_cast<double>(best.mean) < kAcceptedMean;
    if (isAccepted) {
      RemoveAt(points, best.index);
    } else {
      FitMaxResidual(axis, points, curve, largest, worst);
      RemoveAt(points, static_cast<std::size_t>(worst));
    }
    FitAxisCurve(axis, points, curve);
    if (isAccepted) {
      break;
    }
  }
  return true;
}

bool RowFitMaxResidual(const PointList& points, QuadraticCoefficients& curve, float& largest,
                       int& index) {
  return FitMaxResidual(CurveAxis::kRow, points, curve, largest, index);
}

bool ColumnFitMaxResidual(const PointList& points, QuadraticCoefficients& curve, float& largest,
                          int& index) {
  return FitMaxResidual(CurveAxis::kColumn, points, curve, largest, index);
}

float RowFitMeanResidual(const PointList& points) {
  return FitMeanResidual(CurveAxis::kRow, points);
}

float ColumnFitMeanResidual(const PointList& points) {
  return FitMeanResidual(CurveAxis::kColumn, points);
}

bool RejectRowOutliers(PointList& points, float tolerance, QuadraticCoefficients& curve) {
  return RejectOutliers(CurveAxis::kRow, points, tolerance, curve);
}

bool RejectColumnOutliers(PointList& points, float tolerance, QuadraticCoefficients& curve) {
  return RejectOutliers(CurveAxis::kColumn, points, tolerance, curve);
}

}  // namespace quorvex
