// The image half of detection: from the input to the image of the strokes within the target.
#ifndef QUORVEX_INTERFACE_STROKE_IMAGE_H_
#define QUORVEX_INTERFACE_STROKE_IMAGE_H_

#include "base/gray_image.h"
#include "base/pixel_span.h"

namespace quorvex {

struct StrokeImage {
  GrayImage strokes;          // 255 on the edges of strokes, else 0
  GrayImage mask;             // 255 inside the target, else 0
  PixelSpanList rowSpans;     // of the mask, one a row
  PixelSpanList columnSpans;  // of the mask, one a column
};

// Takes a grey image of width * height bytes, both multiples of 4. Leaves the pictures of its
// steps, from "./Binarization.bmp" to "./Eliminate.bmp".
StrokeImage MakeStrokeImage(const unsigned char* input, int width, int height);

}  // namespace quorvex

#endif  // QUORVEX_INTERFACE_STROKE_IMAGE_H_
