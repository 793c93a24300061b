// Pictures made smaller.
#ifndef QUORVEX_TOOLS_PICTURES_SHRINKING_H_
#define QUORVEX_TOOLS_PICTURES_SHRINKING_H_

#include "tools/pictures/picture.h"

namespace quorvex::tools {

// The same area in fewer pixels, each the mean of those that it covers; one that is covered in part
// counts whole. `width` and `height` are from 1 to the picture's.
Picture ShrinkPicture(const Picture& picture, int width, int height);

// The same by the brightest of the pixels covered, so that bright lines on black stay seen.
Picture ShrinkBrightest(const Picture& picture, int width, int height);

// The size of a picture whose sides are made shorter alike, so that neither is longer than `side`;
// its own where neither is.
struct PictureSize {
  int width = 0;  // pixels
  int height = 0;
};
PictureSize SizeWithin(const Picture& picture, int side);

// So that neither side is longer than `side`; as it is where neither is.
Picture ShrinkToSide(const Picture& picture, int side);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_SHRINKING_H_
