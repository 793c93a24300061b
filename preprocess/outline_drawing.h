// Drawing of the target's outline as a closed polygon.
#ifndef QUORVEX_PREPROCESS_OUTLINE_DRAWING_H_
#define QUORVEX_PREPROCESS_OUTLINE_DRAWING_H_

#include "preprocess/outline.h"

namespace quorvex {

// Draws the polygon through the outline's points with grey level 128 in steps of half a pixel; rows
// are exactly width bytes. The drawn positions of every side but the closing one are appended to
// `outline`, also those outside the image. False for fewer than 2 points.
bool DrawOutline(unsigned char* image, int width, int height, OutlineList& outline);

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_OUTLINE_DRAWING_H_
