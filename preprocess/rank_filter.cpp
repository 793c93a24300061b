#include "preprocess/rank_filter.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "base/local_buffer.h"
#include "preprocess/bitmap_stride.h"

namespace quorvex {
namespace {

// One row of the neighbourhood, each column of three sorted.
struct SortedColumns {
  unsigned char* low;
  unsigned char* middle;
  unsigned char* high;
};

// The rows are said to be apart: otherwise there are too many pairs to check for the loop to be
// vectorised.
void SortColumns(const unsigned char* __restrict above, const unsigned char* __restrict row,
                 const unsigned char* __restrict below, int width, unsigned char* __restrict lows,
                 unsigned char* __restrict middles, unsigned char* __restrict highs) {
  for (int x = 0; x < width; ++x) {
    const unsigned char low = std::min(above[x], row[x]);
    const unsigned char high = std::max(above[x], row[x]);
    lows[x] = std::min(low, below[x]);
    middles[x] = std::max(low, std::min(high, below[x]));
    highs[x] = std::max(high, below[x]);
  }
}

unsigned char MedianOf(unsigned char a, unsigned char b, unsigned char c) {
  return std::max(std::min(a, b), std::min(std::max(a, b), c));
}

// The sixth-smallest of each nine pixels: one above the median, so that on a black-and-white image
// four white pixels of nine make the result white and thin dark lines vanish. With the columns
// sorted, at most one of the nine pixels is certain to be above each of these five: the largest of
// the lows, the larger two of the middles, the smaller two of the highs. What is wanted is the
// third-largest of them, and the larger of two is known to be the largest.
void PickSixthSmallest(const SortedColumns& sorted, int width, unsigned char* __restrict result) {
  const unsigned char* low = sorted.low;
  const unsigned char* middle = sorted.middle;
  const unsigned char* high = sorted.high;
  for (int x = 1; x < width - 1; ++x) {
    const unsigned char largestLow = std::max(std::max(low[x - 1], low[x]), low[x + 1]);
    const unsigned char medianMiddle = MedianOf(middle[x - 1], middle[x], middle[x + 1]);
    const unsigned char largestMiddle = std::max(std::max(middle[x - 1], middle[x]), middle[x + 1]);
    const unsigned char smallestHigh = std::min(std::min(high[x - 1], high[x]), high[x + 1]);
    const unsigned char medianHigh = MedianOf(high[x - 1], high[x], high[x + 1]);
    const unsigned char second = std::min(largestMiddle, medianHigh);
    const unsigned char upper = std::max(smallestHigh, largestLow);
    const unsigned char lower = std::min(smallestHigh, largestLow);
    result[x] = std::max(std::max(std::min(second, upper), medianMiddle), lower);
  }
}

}  // namespace

bool RankFilter3x3(unsigned char* image, int width, int height, int) {
  if (width < 1 || height < 1) {
    return true;
  }
  const std::size_t stride = BitmapStride(width);
  const std::size_t rowSize = static_cast<std::size_t>(width);
  // The image is filtered in place; this is the row above as it was.
  LocalBuffer above(rowSize);
  LocalBuffer columns(3 * rowSize);
  if (!above.IsValid() || !columns.IsValid()) {
    return false;
  }
  if (width < 3 || height < 3) {
    return true;
  }
  const SortedColumns sorted{columns.Data(), columns.Data() + rowSize,
                             columns.Data() + 2 * rowSize};
  std::memcpy(above.Data(), image, rowSize);
  for (int y = 1; y <= height - 2; ++y) {
    unsigned char* row = image + stride * static_cast<std::size_t>(y);
    SortColumns(above.Data(), row, row + stride, width, sorted.low, sorted.middle, sorted.high);
    std::memcpy(above.Data(), row, rowSize);
    PickSixthSmallest(sorted, width, row);
  }
  return true;
}

}  // namespace quorvex
