#include "crossmark/image_patch.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace quorvex {

int PatchOrigin(int position, int reach) { return position > reach ? position - reach : 0; }

GrayImage CutPatch(const unsigned char* image, int width, int height, int x0, int y0, int size) {
  constexpr unsigned char kBeyondImage = 255;
  GrayImage patch = GrayImage::Unset(size, size);
  // Compared as differences: a position far outside must not overflow.
  const int columns = std::clamp(width - x0, 0, size);
  for (int r = 0; r < size; ++r) {
    unsigned char* row = patch.Data() + PixelOffset(0, r, size);
    const int inside = r < height - y0 ? columns : 0;
    if (inside > 0) {
      std::memcpy(row, image + PixelOffset(x0, y0 + r, width), static_cast<std::size_t>(inside));
    }
    std::memset(row + inside, kBeyondImage, static_cast<std::size_t>(size - inside));
  }
  return patch;
}

}  // namespace quorvex
