// The centre of the cross mark on one patch.
#ifndef QUORVEX_CROSSMARK_CROSS_CENTER_H_
#define QUORVEX_CROSSMARK_CROSS_CENTER_H_

#include "crossmark/hough_lines.h"
#include "crossmark/mark_pictures.h"

namespace quorvex {

// Finds the crossing of the two strokes on a 160 x 160 grey patch; `thinnedPatch` holds its thinned
// strokes as 0. Sets (x, y), patch coordinates (column, row), which may lie outside the patch.
// Returns false when there are no two strokes; x and y then mean nothing. Leaves "./Lines.bmp" and
// "./LineSegment.bmp".
bool LocateCrossCenter(const unsigned char* greyPatch, const unsigned char* thinnedPatch, float& x,
                       float& y);

// The same for one patch of many: `thinned` is the patch with its thinned strokes, the transform is
// one for 160 x 160 images, and the pictures show what was found.
bool LocateCrossCenter(const unsigned char* greyPatch, const StrokePatch& thinned,
                       HoughTransform& hough, MarkPictures& pictures, float& x, float& y);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_CROSS_CENTER_H_
