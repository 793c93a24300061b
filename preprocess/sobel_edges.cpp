#include "preprocess/sobel_edges.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "base/gray_image.h"
#include "base/local_buffer.h"
#include "preprocess/bitmap_stride.h"
#include "preprocess/convolution.h"

namespace quorvex {
namespace {

constexpr float kVerticalGradient[9] = {-1, -2, -1, 0, 0, 0, 1, 2, 1};
constexpr float kHorizontalGradient[9] = {-1, 0, 1, -2, 0, 2, -1, 0, 1};
constexpr float kScale = 1.0f;

// The stronger gradient. Read as signed on purpose: 200 is less than 30 here.
unsigned char Stronger(unsigned char horizontal, unsigned char vertical) {
  return static_cast<signed char>(horizontal) > static_cast<signed char>(vertical) ? horizontal
                                                                                   : vertical;
}

// The magnitudes of both gradients of one row without its ends, cut at 255. Whole numbers: the sums
// of the convolution are exact, too, and its rounding changes nothing.
void GradientRow(const unsigned char* above, const unsigned char* row, const unsigned char* below,
                 int width, unsigned char* vertical, unsigned char* horizontal) {
  for (int x = 1; x < width - 1; ++x) {
    const std::int16_t v = static_cast<std::int16_t>((above[x - 1] + 2 * above[x] + above[x + 1]) -
                                                     (below[x - 1] + 2 * below[x] + below[x + 1]));
    const std::int16_t h =
        static_cast<std::int16_t>((above[x + 1] + 2 * row[x + 1] + below[x + 1]) -
                                  (above[x - 1] + 2 * row[x - 1] + below[x - 1]));
    const std::int16_t vMagnitude = std::max<std::int16_t>(v, static_cast<std::int16_t>(-v));
    const std::int16_t hMagnitude = std::max<std::int16_t>(h, static_cast<std::int16_t>(-h));
    vertical[x] = static_cast<unsigned char>(std::min<std::int16_t>(vMagnitude, 255));
    horizontal[x] = static_cast<unsigned char>(std::min<std::int16_t>(hMagnitude, 255));
  }
}

// In place: `above` and `current` keep the rows as they were.
bool SweepRows(unsigned char* image, int width, int height) {
  const std::size_t rowSize = static_cast<std::size_t>(width);
  LocalBuffer above(rowSize);
  LocalBuffer current(rowSize);
  LocalBuffer vertical(rowSize);
  LocalBuffer horizontal(rowSize);
  if (!above.IsValid() || !current.IsValid() || !vertical.IsValid() || !horizontal.IsValid()) {
    return false;
  }
  unsigned char* aboveRow = above.Data();
  unsigned char* currentRow = current.Data();
  std::memcpy(aboveRow, image, rowSize);
  for (int y = 1; y <= height - 2; ++y) {
    unsigned char* row = image + PixelOffset(0, y, width);
    std::memcpy(currentRow, row, rowSize);
    GradientRow(aboveRow, currentRow, row + width, width, vertical.Data(), horizontal.Data());
    for (int x = 1; x < width - 1; ++x) {
      row[x] = Stronger(horizontal.Data()[x], vertical.Data()[x]);
    }
    std::swap(aboveRow, currentRow);
  }
  return true;
}

// For rows that are no whole bitmap strides: the convolution then works on a run of pixels that its
// stride cuts into other rows than the image's. Also for images without an inner row, which need
// less memory than a sweep.
bool ConvolveTwice(unsigned char* image, int width, int height) {
  const std::size_t size = PixelOffset(0, height, width);
  const std::size_t convolvedSize = BitmapStride(width) * static_cast<std::size_t>(height);
  LocalBuffer vertical(convolvedSize);
  LocalBuffer horizontal(convolvedSize);
  if (!vertical.IsValid() || !horizontal.IsValid()) {
    return false;
  }
  std::memcpy(vertical.Data(), image, size);
  std::memcpy(horizontal.Data(), image, size);
  if (!Convolve3x3(vertical.Data(), width, height, kVerticalGradient, kScale, 0, 0, 0, 0) ||
      !Convolve3x3(horizontal.Data(), width, height, kHorizontalGradient, kScale, 0, 0, 0, 0)) {
    return false;
  }
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x <= width - 2; ++x) {
      const std::size_t offset = PixelOffset(x, y, width);
      vertical.Data()[offset] = Stronger(horizontal.Data()[offset], vertical.Data()[offset]);
    }
  }
  std::memcpy(image, vertical.Data(), size);
  return true;
}

}  // namespace

bool SobelEdges(unsigned char* image, int width, int height) {
  if (width < 1 || height < 1) {
    return true;
  }
  constexpr int kFewestSwept = 3;  // rows
  return BitmapStride(width) == static_cast<std::size_t>(width) && height >= kFewestSwept
             ? SweepRows(image, width, height)
             : ConvolveTwice(image, width, height);
}

}  // namespace quorvex
