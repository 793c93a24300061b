// Diagnostic pictures of lines.
#ifndef QUORVEX_CROSSMARK_LINE_PICTURE_H_
#define QUORVEX_CROSSMARK_LINE_PICTURE_H_

#include "crossmark/line_segment.h"

namespace quorvex {

// Saves a black picture under `name` in which every point of every line is white; points outside
// are left out. Coordinates are taken as they are: the points of a patch appear in the first rows
// and columns of a larger picture, not where the patch was cut out.
void SaveLinePicture(const LineSegmentList& lines, int width, int height, const char* name);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_LINE_PICTURE_H_
