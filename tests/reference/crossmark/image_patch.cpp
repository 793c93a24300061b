#include "tests/reference/crossmark.h"

namespace quorvex::plain {

int PatchOrigin(int position, int reach) { return position > reach ? position - reach : 0; }

GrayImage CutPatch(const unsigned char* image, int width, int height, int x0, int y0, int size) {
  constexpr unsigned char kBeyondImage = 255;
  GrayImage patch(size, size);
  for (int r = 0; r < size; ++r) {
    for (int c = 0; c < size; ++c) {
      // Compared as differences: a position far outside must not overflow.
      const bool isInside = c < width - x0 && r < height - y0;
      patch.Data()[PixelOffset(c, r, size)] =
          isInside ? image[PixelOffset(x0 + c, y0 + r, width)] : kBeyondImage;
    }
  }
  return patch;
}

}  // namespace quorvex::plain
