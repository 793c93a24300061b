// The detection takes only widths and heights that are multiples of 4; other pictures can be
// padded.
#ifndef QUORVEX_TOOLS_DETECT_PADDING_H_
#define QUORVEX_TOOLS_DETECT_PADDING_H_

#include "tools/pictures/picture.h"

namespace quorvex::tools {

bool HasDetectableSize(const Picture& picture);  // width and height are multiples of 4, at least 4

// The picture grown to the next multiples of 4 by repeating its last column to the right and its
// last row at the bottom. Positions count from the top left pixel, so they hold in both pictures.
Picture PadToDetectableSize(const Picture& picture);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_PADDING_H_
