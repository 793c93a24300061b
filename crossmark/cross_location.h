// The cross mark near a position of the stroke image.
#ifndef QUORVEX_CROSSMARK_CROSS_LOCATION_H_
#define QUORVEX_CROSSMARK_CROSS_LOCATION_H_

#include "crossmark/line_segment.h"

namespace quorvex {

// Looks for the densest stroke area within `searchSize` pixels around (x, y) on a stroke image
// (width * height bytes, strokes 255) and for two crossing strokes in the 200 x 200 patch there.
// Sets the crossing `centre` in image coordinates and the two stroke lines in patch coordinates.
// Returns 1 when a centre was found, else 0; the results then mean nothing. Leaves
// "./CrossMarkRegion.bmp" and, as far as lines and segments are found, "./Lines.bmp" and
// "./LineSegment.bmp".
int LocateCrossMark(const unsigned char* image, int width, int height, int x, int y, int searchSize,
                    LineSegment& firstLine, LineSegment& secondLine, PointF& centre);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_CROSS_LOCATION_H_
