// The extent of the target in one image row (x values) or one image column (y values).
#ifndef QUORVEX_BASE_PIXEL_SPAN_H_
#define QUORVEX_BASE_PIXEL_SPAN_H_

#include <vector>

namespace quorvex {

struct PixelSpan {
  int first;  // pixels; greater than `last` for a line without an extent
  int last;   // pixels, inclusive
};

using PixelSpanList = std::vector<PixelSpan>;

}  // namespace quorvex

#endif  // QUORVEX_BASE_PIXEL_SPAN_H_
