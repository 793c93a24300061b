// The choice of the two strokes of a cross among the segments of a patch.
#ifndef QUORVEX_CROSSMARK_CROSS_LINES_H_
#define QUORVEX_CROSSMARK_CROSS_LINES_H_

#include <cstddef>

#include "crossmark/line_segment.h"

namespace quorvex {

// Takes the segment with the most points as first line and, among those more than 30 degrees off
// it, the one with the most points as second line (the earliest of equals each time), and sets (x,
// y) to their crossing. Returns false when there are no two such strokes; the results then mean
// nothing.
bool SelectCrossLines(const LineSegmentList& segments, float& x, float& y, LineSegment& firstLine,
                      LineSegment& secondLine);

// The choice alone, as positions in the list; false when there is no second line.
bool ChooseCrossLines(const LineSegmentList& segments, std::size_t& first, std::size_t& second);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_CROSS_LINES_H_
