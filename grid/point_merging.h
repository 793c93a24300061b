// Merging of the two grids of a target into one.
#ifndef QUORVEX_GRID_POINT_MERGING_H_
#define QUORVEX_GRID_POINT_MERGING_H_

#include "base/calibration_point.h"

namespace quorvex {

// Replaces `merged` by the longer list (the second of two equally long ones) and those points of
// the other that it lacks and whose place in the grid can be told. Two empty lists leave it alone.
void MergePointSets(const PointList& first, const PointList& second, PointList& merged);

// The same with the roles given. A point of `extra` joins the grid when it fits a row and a column
// of it; the points that fit neither pair may open one new column and one new row. A new line takes
// the number after its neighbour's even when an existing line has it: existing points are never
// renumbered.
void MergeIntoGrid(PointList grid, const PointList& extra, PointList& merged);

}  // namespace quorvex

#endif  // QUORVEX_GRID_POINT_MERGING_H_
