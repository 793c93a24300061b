// Prediction of grid positions at which no cross mark was found.
#ifndef QUORVEX_GRID_MISSING_POINTS_H_
#define QUORVEX_GRID_MISSING_POINTS_H_

#include "base/calibration_point.h"

namespace quorvex {

// Appends to `predicted`, for every empty cell of the rows x cols grid, a record at the crossing of
// the curve through the cell's row and the curve through its column, numbered id = row * cols + col
// + 1. A cell whose row or column holds fewer than two points, or whose curves do not cross inside
// the width * height image, stays empty. The other fields are copied from the last point of the
// column.
void PredictMissingGridPoints(const PointList& points, int rows, int cols, int width, int height,
                              PointList& predicted);

}  // namespace quorvex

#endif  // QUORVEX_GRID_MISSING_POINTS_H_
