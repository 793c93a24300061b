// Straight lines of stroke pixels on a patch.
#ifndef QUORVEX_CROSSMARK_HOUGH_LINES_H_
#define QUORVEX_CROSSMARK_HOUGH_LINES_H_

#include "crossmark/line_segment.h"

namespace quorvex {

// Finds the lines on which more than 30 pixels of value `strokeValue` lie and appends one record
// for each to `lines`, strongest first. Only the point list of a record is set: the stroke pixels
// on the line, row by row. The image is width * height bytes; its last column is never examined.
// Method: Hough transform in the normal form of Duda and Hart, 1972; bins of 1 degree and 2 pixels.
void HoughLines(const unsigned char* image, int width, int height, int strokeValue,
                LineSegmentList& lines);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_HOUGH_LINES_H_
