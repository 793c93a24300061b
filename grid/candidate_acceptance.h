// Whether one more point fits a row or a column of the grid.
#ifndef QUORVEX_GRID_CANDIDATE_ACCEPTANCE_H_
#define QUORVEX_GRID_CANDIDATE_ACCEPTANCE_H_

#include "base/calibration_point.h"

namespace quorvex {

// True when every point of the row, the candidate included, lies less than 10 pixels off the curve
// fitted through all of them; also true for a fit that is not a number.
bool AcceptsRowCandidate(const PointList& rowPoints, const CalibrationPoint& candidate);
bool AcceptsColumnCandidate(const PointList& columnPoints, const CalibrationPoint& candidate);

}  // namespace quorvex

#endif  // QUORVEX_GRID_CANDIDATE_ACCEPTANCE_H_
