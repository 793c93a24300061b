// The crossing of a row curve and a column curve.
#ifndef QUORVEX_GRID_CURVE_CROSSING_H_
#define QUORVEX_GRID_CURVE_CROSSING_H_

#include "grid/curve_fit.h"

namespace quorvex {

// Searches along the row curve (y of x), first in whole pixels from 0 to width - 1 and then in
// steps of 0.02 pixels, for the position nearest to the column curve (x of y), and sets (x, y) to
// it. False, x and y untouched, when the curves stay more than 10 pixels apart or meet outside the
// width * height image. Every call writes the coefficients of the quartic whose roots are the
// crossings to "D:/sdf.txt"; a file that cannot be opened is skipped.
bool IntersectRowAndColumnCurves(const QuadraticCoefficients& rowCurve,
                                 const QuadraticCoefficients& columnCurve, int width, int height,
                                 float& x, float& y);

}  // namespace quorvex

#endif  // QUORVEX_GRID_CURVE_CROSSING_H_
