// Square patches cut out of an image.
#ifndef QUORVEX_CROSSMARK_IMAGE_PATCH_H_
#define QUORVEX_CROSSMARK_IMAGE_PATCH_H_

#include "base/gray_image.h"

namespace quorvex {

// Where the patch of a position starts: `reach` pixels before it, but not before the image's edge.
int PatchOrigin(int position, int reach);

// The size x size pixels from (x0, y0) on, x0 and y0 at least 0; 255 beyond the image.
GrayImage CutPatch(const unsigned char* image, int width, int height, int x0, int y0, int size);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_IMAGE_PATCH_H_
