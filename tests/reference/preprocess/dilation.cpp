#include "tests/reference/preprocess.h"

#include <cstring>

#include "base/gray_image.h"
#include "base/local_buffer.h"

namespace quorvex::plain {
namespace {

constexpr unsigned char kBlack = 0;
constexpr unsigned char kWhite = 255;
constexpr int kIgnoredNeighbour = -1;

// The image lies in memory as one run of pixels: beyond the left or right end of a row its
// neighbour is the far end of the next row. What would lie outside the run is not black.
bool IsBlack(const unsigned char* image, std::ptrdiff_t size, std::ptrdiff_t offset) {
  return offset >= 0 && offset < size && image[offset] == kBlack;
}

bool HasBlackNeighbour(const unsigned char* image, std::ptrdiff_t size, std::ptrdiff_t offset,
                       int width, const int* element) {
  for (int dy = 1; dy >= -1; --dy) {
    for (int dx = -1; dx <= 1; ++dx, ++element) {
      if (*element != kIgnoredNeighbour &&
          IsBlack(image, size, offset + static_cast<std::ptrdiff_t>(dy) * width + dx)) {
        return true;
      }
    }
  }
  return false;
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
  std::memset(dilated.Data(), kWhite, size);
  for (int y = 1; y <= height - 2; ++y) {
    for (int x = 0; x < width; ++x) {
      const std::size_t offset = PixelOffset(x, y, width);
      if (image[offset] != kBlack && image[offset] != kWhite) {
        return false;
      }
      if (HasBlackNeighbour(image, static_cast<std::ptrdiff_t>(size),
                            static_cast<std::ptrdiff_t>(offset), width, element)) {
        dilated.Data()[offset] = kBlack;
      }
    }
  }
  std::memcpy(image, dilated.Data(), size);
  return true;
}

}  // namespace quorvex::plain
