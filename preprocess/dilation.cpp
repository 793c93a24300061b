#include "preprocess/dilation.h"

#include <cstddef>
#include <cstring>

#include "base/gray_image.h"
#include "base/local_buffer.h"

namespace quorvex {
namespace {

constexpr unsigned char kBlack = 0;
constexpr unsigned char kWhite = 255;
constexpr int kIgnoredNeighbour = -1;

bool IsBlackAndWhite(const unsigned char* pixels, std::size_t count) {
  unsigned char other = 0;
  for (std::size_t i = 0; i < count; ++i) {
    other |= static_cast<unsigned char>(pixels[i] != kBlack && pixels[i] != kWhite);
  }
  return other == 0;
}

// Makes every pixel of `result` black whose counterpart in `neighbours` is.
void SpreadBlack(const unsigned char* neighbours, std::ptrdiff_t count, unsigned char* result) {
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    result[i] = neighbours[i] == kBlack ? kBlack : result[i];
  }
}

// The image lies in memory as one run of pixels: beyond the left or right end of a row its
// neighbour is the far end of the next row. What would lie outside the run is not black.
void DilateRow(const unsigned char* image, std::ptrdiff_t size, std::ptrdiff_t rowStart, int width,
               const int* element, unsigned char* result) {
  for (int dy = 1; dy >= -1; --dy) {
    for (int dx = -1; dx <= 1; ++dx, ++element) {
      if (*element == kIgnoredNeighbour) {
        continue;
      }
      const std::ptrdiff_t start = rowStart + static_cast<std::ptrdiff_t>(dy) * width + dx;
      const std::ptrdiff_t before = start < 0 ? -start : 0;
      const std::ptrdiff_t beyond = start + width > size ? start + width - size : 0;
      SpreadBlack(image + start + before, width - before - beyond, result + before);
    }
  }
}

}  // namespace

bool DilateImage(unsigned char* image, int width, int height, int, const int* element) {
  if (width < 1 || height < 1) {
    return true;
  }
  const std::size_t size = PixelOffset(0, height, width);
  LocalBuffer dilated(size);
  if (!dilated.IsValid()) {
    return false;
  }
  if (height > 2 &&
      !IsBlackAndWhite(image + PixelOffset(0, 1, width), PixelOffset(0, height - 2, width))) {
    return false;
  }
  std::memset(dilated.Data(), kWhite, size);
  for (int y = 1; y <= height - 2; ++y) {
    const std::size_t row = PixelOffset(0, y, width);
    DilateRow(image, static_cast<std::ptrdiff_t>(size), static_cast<std::ptrdiff_t>(row), width,
              element, dilated.Data() + row);
  }
  std::memcpy(image, dilated.Data(), size);
  return true;
}

}  // namespace quorvex
