// Pictures made smaller.
#ifndef QUORVEX_TOOLS_PICTURES_SHRINKING_H_
#define QUORVEX_TOOLS_PICTURES_SHRINKING_H_

#include "tools/pictures/picture.h"

namespace quorvex::tools {

// The same area in fewer pixels, each the mean of those that it covers; one that is covered in part
// counts whole. `width` and `height` are from 1 to the picture's.
Picture ShrinkPicture(const Picture& picture, int width, int height);

// So that neither side is longer than `side`; as it is where neither is.
Picture ShrinkToSide(const Picture& picture, int side);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_SHRINKING_H_
