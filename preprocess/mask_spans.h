// The extent of the target in every image row and column.
#ifndef QUORVEX_PREPROCESS_MASK_SPANS_H_
#define QUORVEX_PREPROCESS_MASK_SPANS_H_

#include "base/pixel_span.h"

namespace quorvex {

// The lowest and highest x at which the mask is 255, for each row from row 0. A row in which the
// mask is 255 at fewer than two pixels has the empty span (width, 0), not (0, 0).
PixelSpanList ComputeRowSpans(const unsigned char* mask, int width, int height);

// The same along y for each column from column 0; the empty span is (height, 0).
PixelSpanList ComputeColumnSpans(const unsigned char* mask, int width, int height);

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_MASK_SPANS_H_
