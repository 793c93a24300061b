// Growing of rows and columns from a seed curve: points that carry a label along one direction of
// the grid receive their index along the other.
#ifndef QUORVEX_GRID_LINE_GROWING_H_
#define QUORVEX_GRID_LINE_GROWING_H_

#include "base/calibration_point.h"
#include "grid/curve_fit.h"

namespace quorvex {

// Gives the points of `input`, which carry column labels from 0, their rows: the points within 10
// pixels of the seed curve form the seed row; then, row by row in both directions, each column's
// nearest point beyond the current curve. Rows count from 0 at the largest y. `output` is emptied
// and receives copies; a point can appear in it more than once or not at all. `rowSpan` bounds the
// walk towards larger y alone, to 2 * rowSpan + 1 rows; `columnSpan` is ignored. False, the output
// as it was, for fewer than 2 points.
bool GrowRows(const PointList& input, int rowSpan, int columnSpan,
              const QuadraticCoefficients& seed, PointList& output);

// The twin: the points carry row labels and receive columns, which count from 0 at the smallest x.
// `columnSpan` bounds the walk towards larger x alone; `rowSpan` is ignored.
bool GrowColumns(const PointList& input, int rowSpan, int columnSpan,
                 const QuadraticCoefficients& seed, PointList& output);

}  // namespace quorvex

#endif  // QUORVEX_GRID_LINE_GROWING_H_
