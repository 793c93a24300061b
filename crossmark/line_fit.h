// Least-squares fit of a straight line.
#ifndef QUORVEX_CROSSMARK_LINE_FIT_H_
#define QUORVEX_CROSSMARK_LINE_FIT_H_

#include "crossmark/line_segment.h"

namespace quorvex {

// Fits a * x + b * y + c = 0 with unit normal (a, b) through the points, by least squares of y on
// x, and gives the line's direction angle in radians: the arc tangent of the slope, or 1.5707963
// for points that hardly spread in x, which give a vertical line. Returns false, the results
// untouched, for fewer than 2 points.
bool FitLine(const PointFList& points, float& a, float& b, float& c, float& angle);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_LINE_FIT_H_
