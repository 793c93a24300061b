#include "preprocess/convolution.h"

#include <cmath>
#include <cstddef>
#include <cstring>

#include "base/local_buffer.h"
#include "base/rounding.h"
#include "preprocess/bitmap_stride.h"

namespace quorvex {
namespace {

constexpr float kBrightest = 255.0f;  // grey level

float WeightedSum(const unsigned char* centre, std::ptrdiff_t stride, const float* kernel) {
  float sum = 0.0f;
  for (std::ptrdiff_t dy = 1; dy >= -1; --dy) {
    for (std::ptrdiff_t dx = -1; dx <= 1; ++dx, ++kernel) {
      sum += *kernel * static_cast<float>(centre[dy * stride + dx]);
    }
  }
  return sum;
}

// The sign is dropped: a falling edge counts as much as a rising one.
unsigned char MagnitudeToLevel(float value) {
  const float magnitude = std::fabs(value);
  return magnitude > kBrightest ? 255 : static_cast<unsigned char>(RoundHalfUp(magnitude));
}

}  // namespace

bool Convolve3x3(unsigned char* image, int width, int height, const float* kernel, float scale, int,
                 int, int, int) {
  if (width < 1 || height < 1) {
    return true;
  }
  const std::size_t stride = BitmapStride(width);
  const std::size_t size = stride * static_cast<std::size_t>(height);
  LocalBuffer convolved(size);
  if (!convolved.IsValid()) {
    return false;
  }
  if (width < 3 || height < 3) {
    return true;
  }
  std::memcpy(convolved.Data(), image, size);
  for (int y = height - 2; y >= 1; --y) {
    const std::size_t row = stride * static_cast<std::size_t>(y);
    for (int x = 1; x <= width - 2; ++x) {
      const std::size_t offset = row + static_cast<std::size_t>(x);
      const float sum = WeightedSum(image + offset, static_cast<std::ptrdiff_t>(stride), kernel);
      convolved.Data()[offset] = MagnitudeToLevel(sum * scale);
    }
  }
  std::memcpy(image, convolved.Data(), size);
  return true;
}

}  // namespace quorvex
