#include "tests/reference/preprocess.h"

#include <cstddef>

#include "base/gray_image.h"
#include "preprocess/outline_level.h"

namespace quorvex::plain {
namespace {

// Walks `count` pixels, `step` bytes apart, painting until the outline is met.
void WalkInward(unsigned char* start, int count, std::ptrdiff_t step) {
  for (int i = 0; i < count && start[i * step] != kOutlineLevel; ++i) {
    start[i * step] = kOutsideLevel;
  }
}

}  // namespace

bool MarkOutsideRegion(unsigned char* image, int width, int height) {
  if (width < 1 || height < 1) {
    return true;
  }
  for (int y = 0; y < height; ++y) {
    WalkInward(image + PixelOffset(0, y, width), width, 1);
    WalkInward(image + PixelOffset(width - 1, y, width), width, -1);
  }
  const std::ptrdiff_t rowStep = width;
  for (int x = 0; x < width; ++x) {
    WalkInward(image + PixelOffset(x, 0, width), height, rowStep);
    WalkInward(image + PixelOffset(x, height - 1, width), height, -rowStep);
  }
  return true;
}

}  // namespace quorvex::plain
