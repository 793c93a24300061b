// The crossing point of two lines.
#ifndef QUORVEX_CROSSMARK_LINE_INTERSECTION_H_
#define QUORVEX_CROSSMARK_LINE_INTERSECTION_H_

#include "crossmark/line_segment.h"

namespace quorvex {

// Sets (x, y) to the crossing of the two lines. False, x and y untouched,
// when they are parallel to the last bit.
bool IntersectLines(const LineSegment& first, const LineSegment& second, float& x, float& y);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_LINE_INTERSECTION_H_
