#include "tests/reference/grid.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "base/largest_field.h"
#include "grid/curve_axis.h"
#include "grid/outlier_rejection.h"

namespace quorvex::plain {
namespace {

constexpr double kCurveReach = 10.0;  // pixels off a curve within which a point belongs to it
constexpr float kFarthestCandidate = 1000.0f;  // pixels beyond a curve
constexpr std::size_t kFewestCandidates = 3;
constexpr float kRejectionTolerance = 10.0f;  // pixels

// What differs between the twins.
struct GrowthAxis {
  CurveAxis curve;
  int CalibrationPoint::*label;  // set before: what the candidates of a step are chosen by
  int CalibrationPoint::*index;  // written here
};

constexpr GrowthAxis kRowGrowth = {CurveAxis::kRow, &CalibrationPoint::col, &CalibrationPoint::row};
constexpr GrowthAxis kColumnGrowth = {CurveAxis::kColumn, &CalibrationPoint::row,
                                      &CalibrationPoint::col};

// Whether the curve is, bit for bit, one of these.
bool IsAmong(const std::vector<QuadraticCoefficients>& curves, const QuadraticCoefficients& curve) {
  return std::any_of(curves.begin(), curves.end(), [&curve](const QuadraticCoefficients& other) {
    return std::memcmp(&other, &curve, sizeof curve) == 0;
  });
}

// What all steps of one growth share.
struct Growth {
  const GrowthAxis& axis;
  const PointList& input;
  int span;
  const QuadraticCoefficients& seed;
  int largestLabel;
};

// Of each label, the nearest point beyond the curve in the direction of `sign`, the first of
// equals.
PointList CollectCandidates(const Growth& growth, const QuadraticCoefficients& curve, float sign) {
  const GrowthAxis& axis = growth.axis;
  PointList candidates;
  for (int label = 0; label <= growth.largestLabel; ++label) {
    const CalibrationPoint* nearest = nullptr;
    float nearestDistance = kFarthestCandidate;
    for (const CalibrationPoint& point : growth.input) {
      if (point.*axis.label != label) {
        continue;
      }
      const float distance = sign * SignedResidual(axis.curve, point, curve);
      if (static_cast<double>(distance) > kCurveReach && distance < nearestDistance) {
        nearest = &point;
        nearestDistance = distance;
      }
    }
    if (nearest != nullptr) {
      candidates.push_back(*nearest);
    }
  }
  return candidates;
}

// Steps outward from the seed curve, one grid line a step, with the given direction of residuals
// and of indices, and appends the points of every line to `output`.
void StepOutward(const Growth& growth, int direction, PointList& output) {
  const GrowthAxis& axis = growth.axis;
  std::vector<QuadraticCoefficients> curves = {growth.seed};
  int k = 0;
  // The span bounds k, not its magnitude: it does not end a walk towards smaller values. That one
  // ends when its marks run out, or when a curve comes back after which it would repeat itself;
  // a negative span ends either walk after its first step.
  do {
    PointList candidates = CollectCandidates(growth, curves.back(), static_cast<float>(direction));
    if (candidates.size() < kFewestCandidates) {
      return;
    }
    QuadraticCoefficients curve;
    RejectOutliers(axis.curve, candidates, kRejectionTolerance, curve);
    if (direction < 0 && growth.span >= 0 && IsAmong(curves, curve)) {
      return;
    }
    curves.push_back(curve);
    k += direction;
    for (CalibrationPoint& candidate : candidates) {
      candidate.*axis.index = k;
      output.push_back(candidate);
    }
  } while (k <= 2LL * growth.span);
}

void AppendSeedLine(const Growth& growth, PointList& output) {
  const GrowthAxis& axis = growth.axis;
  for (CalibrationPoint point : growth.input) {
    const float residual = std::fabs(SignedResidual(axis.curve, point, growth.seed));
    if (static_cast<double>(residual) < kCurveReach) {
      point.*axis.index = 0;
      output.push_back(point);
    }
  }
}

bool GrowLines(const GrowthAxis& axis, const PointList& input, int span,
               const QuadraticCoefficients& seed, PointList& output) {
  if (input.size() < 2) {
    return false;
  }
  const Growth growth{axis, input, span, seed, LargestField(input, axis.label, 0)};
  output.clear();
  AppendSeedLine(growth, output);
  StepOutward(growth, 1, output);
  StepOutward(growth, -1, output);
  return true;
}

}  // namespace

bool GrowRows(const PointList& input, int rowSpan, int, const QuadraticCoefficients& seed,
              PointList& output) {
  if (!GrowLines(kRowGrowth, input, rowSpan, seed, output)) {
    return false;
  }
  // Rows are numbered against the direction of y, columns along x: the pictures are stored
  // bottom-up.
  const int largestRow = LargestField(output, &CalibrationPoint::row, 0);
  for (CalibrationPoint& point : output) {
    point.row = largestRow - point.row;
  }
  return true;
}

bool GrowColumns(const PointList& input, int, int columnSpan, const QuadraticCoefficients& seed,
                 PointList& output) {
  if (!GrowLines(kColumnGrowth, input, columnSpan, seed, output)) {
    return false;
  }
  int smallestCol = 0;
  for (const CalibrationPoint& point : output) {
    smallestCol = std::min(smallestCol, point.col);
  }
  for (CalibrationPoint& point : output) {
    point.col -= smallestCol;
  }
  return true;
}

}  // namespace quorvex::plain
