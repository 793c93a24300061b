#include "tests/reference/preprocess.h"

#include <cstddef>

#include "base/gray_image.h"

namespace quorvex::plain {
namespace {

constexpr unsigned char kInsideMask = 255;

// The span of one line of `count` pixels, `step` bytes apart.
PixelSpan LineSpan(const unsigned char* line, int count, std::size_t step) {
  const PixelSpan empty{count, 0};
  PixelSpan span = empty;
  for (int i = 0; i < count; ++i) {
    if (line[static_cast<std::size_t>(i) * step] == kInsideMask) {
      span.first = span.first == count ? i : span.first;
      span.last = i;
    }
  }
  return span.first < span.last ? span : empty;
}

}  // namespace

PixelSpanList ComputeRowSpans(const unsigned char* mask, int width, int height) {
  PixelSpanList spans;
  for (int y = 0; y < height; ++y) {
    spans.push_back(LineSpan(mask + PixelOffset(0, y, width), width, 1));
  }
  return spans;
}

PixelSpanList ComputeColumnSpans(const unsigned char* mask, int width, int height) {
  PixelSpanList spans;
  for (int x = 0; x < width; ++x) {
    spans.push_back(LineSpan(mask + x, height, static_cast<std::size_t>(width)));
  }
  return spans;
}

}  // namespace quorvex::plain
