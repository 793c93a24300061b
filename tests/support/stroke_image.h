// Synthetic stroke images and target spans for tests of the grid stages.
#ifndef QUORVEX_TESTS_SUPPORT_STROKE_IMAGE_H_
#define QUORVEX_TESTS_SUPPORT_STROKE_IMAGE_H_

#include <initializer_list>

#include "base/gray_image.h"
#include "base/pixel_span.h"

namespace quorvex::tests {

// Sets the pixels of a rectangle, both corners inclusive, as far as they lie inside the image.
inline void DrawBox(GrayImage& image, int left, int top, int right, int bottom,
                    unsigned char level = 255) {
  for (int y = top; y <= bottom; ++y) {
    for (int x = left; x <= right; ++x) {
      if (IsInside(x, y, image.Width(), image.Height())) {
        image.Data()[PixelOffset(x, y, image.Width())] = level;
      }
    }
  }
}

constexpr int kArm = 50;  // pixels from a cross's centre to the end of a stroke

// Two strokes 3 pixels wide.
inline void DrawCross(GrayImage& image, int x, int y, unsigned char level = 255) {
  DrawBox(image, x - kArm, y - 1, x + kArm, y + 1, level);
  DrawBox(image, x - 1, y - kArm, x + 1, y + kArm, level);
}

inline void DrawCrosses(GrayImage& image, std::initializer_list<int> columns,
                        std::initializer_list<int> rows, unsigned char level = 255) {
  for (const int y : rows) {
    for (const int x : columns) {
      DrawCross(image, x, y, level);
    }
  }
}

// A target that fills the image: `count` lines of `length` pixels.
inline PixelSpanList FullSpans(int count, int length) {
  return PixelSpanList(static_cast<std::size_t>(count), PixelSpan{0, length - 1});
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_STROKE_IMAGE_H_
