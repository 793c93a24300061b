// Renumbering of a grid for the left or the right camera: every former column becomes a row.
#ifndef QUORVEX_POSTPROCESS_REARRANGEMENT_H_
#define QUORVEX_POSTPROCESS_REARRANGEMENT_H_

#include "base/calibration_point.h"

namespace quorvex {

// The points of each former column k from 0 to n - 1 become row k. LeftPtsRearrange counts the new
// columns from 0 at the largest y on; RightPtsRearrange lists a row by ascending y and counts down
// from n - 1. They differ where a column does not hold exactly n points. id = row * n + col + 1.
// Points of other columns are dropped, with n below 1 all of them. The second parameter is ignored.
void LeftPtsRearrange(PointList& points, int unused, int n);
void RightPtsRearrange(PointList& points, int unused, int n);

}  // namespace quorvex

#endif  // QUORVEX_POSTPROCESS_REARRANGEMENT_H_
