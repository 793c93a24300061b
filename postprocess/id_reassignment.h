// Renumbering of an edited point list by its geometry alone.
#ifndef QUORVEX_POSTPROCESS_ID_REASSIGNMENT_H_
#define QUORVEX_POSTPROCESS_ID_REASSIGNMENT_H_

#include "base/calibration_point.h"

namespace quorvex {

// Gives every point of a complete rows x columns grid its row, column and id, and orders the list
// column by column: row 0 has the smallest y, column 0 the smallest x, id = row * columns + col
// + 1. The middle row is traced from the point nearest to the centre of gravity, a column from each
// of its points. False, the list unchanged, for an empty list, for another number of points than
// rows * columns (after a message), and when the traces do not cover the grid exactly.
bool ReAssignmentID(int rows, int columns, PointList& points);

}  // namespace quorvex

#endif  // QUORVEX_POSTPROCESS_ID_REASSIGNMENT_H_
