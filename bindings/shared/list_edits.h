// The library's renumbering and rearranging as the languages offer them: a list that cannot be done
// stays as it is.
#ifndef QUORVEX_BINDINGS_SHARED_LIST_EDITS_H_
#define QUORVEX_BINDINGS_SHARED_LIST_EDITS_H_

#include "interface/calibration_point.h"

namespace quorvex::bindings {

constexpr int kMostGridLines = 32768;  // rows or columns

// False when the points are not a grid of that many rows and columns, 1 to kMostGridLines each, or
// when ReAssignmentID cannot trace it. Shows no message box.
bool RenumberGrid(int rows, int columns, PointList& points);

enum class CameraSide { kLeft, kRight };

// Columns from 0 to count - 1, count from 1 to kMostGridLines. False when no point has one of them.
bool RearrangeGrid(CameraSide side, int count, PointList& points);

}  // namespace quorvex::bindings

#endif  // QUORVEX_BINDINGS_SHARED_LIST_EDITS_H_
