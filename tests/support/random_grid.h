// Grids of points as lists: in and out of place, with values that are no positions.
#ifndef QUORVEX_TESTS_SUPPORT_RANDOM_GRID_H_
#define QUORVEX_TESTS_SUPPORT_RANDOM_GRID_H_

#include "base/calibration_point.h"
#include "tests/support/case_random.h"

namespace quorvex::tests {

// Numbered from 0 on without rows and columns, row by row, with gaps that mostly shrink from the
// middle outwards; points that are repeated, and such with NaN, infinite and huge values.
PointList RandomGridPoints(CaseRandom& random);

// Bent lines, disturbed, with rows and with columns that are mostly right, and twins of points, in
// any order. Ids tell the points apart.
PointList RandomLabelledGrid(CaseRandom& random);

// One of a list that is not empty.
const CalibrationPoint& OneOfPoints(CaseRandom& random, const PointList& points);

// Somewhere else in the list, so that equals do not always stand in the order of the grid.
void Shuffle(CaseRandom& random, PointList& points);

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_RANDOM_GRID_H_
