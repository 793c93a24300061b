// Fits of row and column curves to candidate lists, and removal of the points that do not belong.
#ifndef QUORVEX_GRID_OUTLIER_REJECTION_H_
#define QUORVEX_GRID_OUTLIER_REJECTION_H_

#include "grid/curve_axis.h"

namespace quorvex {

// Fits a row curve and finds the point with the largest absolute residual (pixels), the first of
// equals. False, the results untouched, for fewer than 2 points.
bool RowFitMaxResidual(const PointList& points, QuadraticCoefficients& curve, float& largest,
                       int& index);
bool ColumnFitMaxResidual(const PointList& points, QuadraticCoefficients& curve, float& largest,
                          int& index);

// The mean absolute residual (pixels) of the points against the row curve fitted to them; 0 for
// fewer than 2 points.
float RowFitMeanResidual(const PointList& points);
float ColumnFitMeanResidual(const PointList& points);

// Fits a row curve and, unless every residual is below the tolerance (pixels), removes points until
// the mean residual of what would remain is below 2 pixels. The tolerance is asked only once: after
// that, a list always loses at least one point. `curve` receives the curve of the points that
// remain. False, nothing changed, for fewer than 2 points.
bool RejectRowOutliers(PointList& points, float tolerance, QuadraticCoefficients& curve);
bool RejectColumnOutliers(PointList& points, float tolerance, QuadraticCoefficients& curve);

// The same over an axis.
bool RejectOutliers(CurveAxis axis, PointList& points, float tolerance,
                    QuadraticCoefficients& curve);

}  // namespace quorvex

#endif  // QUORVEX_GRID_OUTLIER_REJECTION_H_
