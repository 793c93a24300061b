#include "preprocess/mask_spans.h"

#include <cstddef>
#include <cstring>
#include <vector>

#include "base/gray_image.h"

namespace quorvex {
namespace {

constexpr unsigned char kInsideMask = 255;

PixelSpan RowSpan(const unsigned char* row, int width) {
  const void* found = std::memchr(row, kInsideMask, static_cast<std::size_t>(width));
  if (found == nullptr) {
    return {width, 0};
  }
  const int first = static_cast<int>(static_cast<const unsigned char*>(found) - row);
  int last = width - 1;
  while (row[last] != kInsideMask) {
    --last;
  }
  // A single pixel is no extent.
  return first < last ? PixelSpan{first, last} : PixelSpan{width, 0};
}

void ExtendColumns(const unsigned char* row, int y, int width, int* first, int* last) {
  for (int x = 0; x < width; ++x) {
    const bool isInside = row[x] == kInsideMask;
    first[x] = isInside && y < first[x] ? y : first[x];
    last[x] = isInside ? y : last[x];
  }
}

}  // namespace

PixelSpanList ComputeRowSpans(const unsigned char* mask, int width, int height) {
  PixelSpanList spans;
  spans.reserve(static_cast<std::size_t>(height > 0 ? height : 0));
  for (int y = 0; y < height; ++y) {
    spans.push_back(RowSpan(mask + PixelOffset(0, y, width), width));
  }
  return spans;
}

PixelSpanList ComputeColumnSpans(const unsigned char* mask, int width, int height) {
  if (width < 1) {
    return {};
  }
  const PixelSpan empty{height, 0};
  std::vector<int> first(static_cast<std::size_t>(width), height);
  std::vector<int> last(static_cast<std::size_t>(width), 0);
  for (int y = 0; y < height; ++y) {
    ExtendColumns(mask + PixelOffset(0, y, width), y, width, first.data(), last.data());
  }
  PixelSpanList spans;
  spans.reserve(first.size());
  for (std::size_t x = 0; x < first.size(); ++x) {
    spans.push_back(first[x] < last[x] ? PixelSpan{first[x], last[x]} : empty);
  }
  return spans;
}

}  // namespace quorvex
