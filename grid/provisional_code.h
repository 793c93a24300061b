// Provisional line numbers of points that fit a row of the grid but no column yet, or the reverse.
//
// -100 stands for a new line before line 0, -101 - n for a new line just after line n, -1 for no
// place.
#ifndef QUORVEX_GRID_PROVISIONAL_CODE_H_
#define QUORVEX_GRID_PROVISIONAL_CODE_H_

#include "base/calibration_point.h"

namespace quorvex {

// The column code of a point that fits a row. `rowPoints` are the row's points by ascending x, each
// with its col. Between two of them the point must lie more than 20 pixels beyond the left one but
// may lie up to 20 pixels beyond the right one; rows and columns differ in this on purpose. When no
// pair takes the point, its own code is kept.
int ProvisionalColumnCode(const PointList& rowPoints, const CalibrationPoint& point);

// The row code of a point that fits a column. `columnPoints` are the column's points by descending
// y, each with its row. Between two of them the point must lie more than 20 pixels from both.
int ProvisionalRowCode(const PointList& columnPoints, const CalibrationPoint& point);

// The line number that a code stands for: -101 - n gives n + 1 and -100 gives 0. What is no code
// gives the language's remainder, too.
int LineNumberOfCode(int code);

}  // namespace quorvex

#endif  // QUORVEX_GRID_PROVISIONAL_CODE_H_
