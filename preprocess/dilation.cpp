#include "preprocess/dilation.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "base/gray_image.h"
#include "base/local_buffer.h"

namespace quorvex {
namespace {

constexpr unsigned char kBlack = 0;
constexpr unsigned char kWhite = 255;
constexpr int kIgnoredNeighbour = -1;
constexpr int kNeighbourhood = 9;  // pixels

bool IsBlackAndWhite(const unsigned char* pixels, std::size_t count) {
  unsigned char other = 0;
  for (std::size_t i = 0; i < count; ++i) {
    other |= static_cast<unsigned char>(pixels[i] != kBlack && pixels[i] != kWhite);
  }
  return other == 0;
}

// Makes every pixel of `result` black whose counterpart in `neighbours` is.
void SpreadBlack(const unsigned char* __restrict neighbours, int count,
                 unsigned char* __restrict result) {
  for (int i = 0; i < count; ++i) {
    result[i] = neighbours[i] == kBlack ? kBlack : result[i];
  }
}

// The rows around one that is being dilated, as they were before: each with the pixel before it and
// the pixel after it. The image lies in memory as one run of pixels: beyond the left or right end
// of a row its neighbour is the far end of the next row. What would lie outside the run is not
// black.
class Neighbourhood {
 public:
  // `scratch` holds three times width + 2 bytes.
  Neighbourhood(const unsigned char* image, int width, int height, unsigned char* scratch)
      : image_(image), width_(width), height_(height) {
    for (int i = 0; i < 3; ++i) {
      rows_[i] = scratch + static_cast<std::size_t>(i) * (static_cast<std::size_t>(width) + 2);
    }
    Load(0, rows_[1]);
    Load(1, rows_[2]);
  }

  // To be called with each y from 1 on, before row y is written to.
  void MoveTo(int y) {
    std::rotate(rows_, rows_ + 1, rows_ + 3);
    Load(y + 1, rows_[2]);
  }

  // The pixels at (dx, dy) from those of the row: -1, 0 or 1 each.
  const unsigned char* At(int dx, int dy) const { return rows_[1 + dy] + 1 + dx; }

 private:
  void Load(int y, unsigned char* row) const {
    const unsigned char* pixels = image_ + PixelOffset(0, y, width_);
    row[0] = y > 0 ? pixels[-1] : kWhite;
    std::memcpy(row + 1, pixels, static_cast<std::size_t>(width_));
    row[width_ + 1] = y < height_ - 1 ? pixels[width_] : kWhite;
  }

  const unsigned char* image_;
  int width_;
  int height_;
  unsigned char* rows_[3];
};

}  // namespace

bool DilateImage(unsigned char* image, int width, int height, int, const int* element) {
  if (width < 1 || height < 1) {
    return true;
  }
  LocalBuffer scratch(3 * (static_cast<std::size_t>(width) + 2));
  if (!scratch.IsValid()) {
    return false;
  }
  if (height < 3) {
    std::memset(image, kWhite, PixelOffset(0, height, width));
    return true;
  }
  if (!IsBlackAndWhite(image + PixelOffset(0, 1, width), PixelOffset(0, height - 2, width))) {
    return false;
  }
  Neighbourhood around(image, width, height, scratch.Data());
  for (int y = 1; y <= height - 2; ++y) {
    around.MoveTo(y);
    unsigned char* row = image + PixelOffset(0, y, width);
    std::memset(row, kWhite, static_cast<std::size_t>(width));
    for (int i = 0; i < kNeighbourhood; ++i) {
      if (element[i] != kIgnoredNeighbour) {
        SpreadBlack(around.At(i % 3 - 1, 1 - i / 3), width, row);
      }
    }
  }
  std::memset(image, kWhite, static_cast<std::size_t>(width));
  std::memset(image + PixelOffset(0, height - 1, width), kWhite, static_cast<std::size_t>(width));
  return true;
}

}  // namespace quorvex
