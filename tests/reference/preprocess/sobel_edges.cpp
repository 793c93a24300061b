#include "tests/reference/preprocess.h"

#include <cstring>

#include "base/gray_image.h"
#include "base/local_buffer.h"
#include "preprocess/bitmap_stride.h"
#include "preprocess/convolution.h"

namespace quorvex::plain {
namespace {

constexpr float kVerticalGradient[9] = {-1, -2, -1, 0, 0, 0, 1, 2, 1};
constexpr float kHorizontalGradient[9] = {-1, 0, 1, -2, 0, 2, -1, 0, 1};
constexpr float kScale = 1.0f;

}  // namespace

bool SobelEdges(unsigned char* image, int width, int height) {
  if (width < 1 || height < 1) {
    return true;
  }
  const std::size_t size = PixelOffset(0, height, width);
  // The convolution addresses rows of whole bitmap strides.
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
      // Read as signed on purpose: 200 is less than 30 here.
      if (static_cast<signed char>(horizontal.Data()[offset]) >
          static_cast<signed char>(vertical.Data()[offset])) {
        vertical.Data()[offset] = horizontal.Data()[offset];
      }
    }
  }
  std::memcpy(image, vertical.Data(), size);
  return true;
}

}  // namespace quorvex::plain
