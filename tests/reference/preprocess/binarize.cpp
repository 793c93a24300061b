#include "tests/reference/preprocess.h"

#include "preprocess/bitmap_stride.h"

namespace quorvex::plain {

bool BinarizeImage(unsigned char* image, int width, int height, unsigned char level) {
  constexpr unsigned char kBlack = 0;
  constexpr unsigned char kWhite = 255;
  for (int y = 0; y < height; ++y) {
    unsigned char* row = image + BitmapStride(width) * static_cast<std::size_t>(y);
    for (int x = 0; x < width; ++x) {
      row[x] = row[x] < level ? kBlack : kWhite;
    }
  }
  return true;
}

}  // namespace quorvex::plain
