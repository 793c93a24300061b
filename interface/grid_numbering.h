// Numbering and completion of the merged grid.
#ifndef QUORVEX_INTERFACE_GRID_NUMBERING_H_
#define QUORVEX_INTERFACE_GRID_NUMBERING_H_

#include "base/calibration_point.h"

namespace quorvex {

// Sets every id to row * columns + col + 1, columns being the largest col + 1. A point without a
// row or column gets a small or non-positive id.
void NumberGrid(PointList& grid);

// Appends predicted points for empty cells when the grid holds fewer points than rows * columns.
void CompleteGrid(int width, int height, PointList& grid);

// Appends the points of the grid whose id is not negative.
void AppendNumberedPoints(const PointList& grid, PointList& points);

// Sorts by ascending id; equal ids keep their order.
void SortPointsById(PointList& points);

}  // namespace quorvex

#endif  // QUORVEX_INTERFACE_GRID_NUMBERING_H_
