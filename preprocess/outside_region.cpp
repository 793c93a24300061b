#include "preprocess/outside_region.h"

#include <cstddef>
#include <cstring>
#include <vector>

#include "base/gray_image.h"
#include "preprocess/outline_level.h"

namespace quorvex {
namespace {

constexpr unsigned char kOpen = 255;

// Paints a row from both its ends up to the outline. What was painted before is painted again:
// only the outline stops a walk.
void PaintRowEnds(unsigned char* row, int width) {
  const std::size_t size = static_cast<std::size_t>(width);
  const void* outline = std::memchr(row, kOutlineLevel, size);
  if (outline == nullptr) {
    std::memset(row, kOutsideLevel, size);
    return;
  }
  const std::size_t first =
      static_cast<std::size_t>(static_cast<const unsigned char*>(outline) - row);
  std::size_t last = size - 1;
  while (row[last] != kOutlineLevel) {
    --last;
  }
  std::memset(row, kOutsideLevel, first);
  std::memset(row + last + 1, kOutsideLevel, size - last - 1);
}

// Walks all columns at once, row by row as they lie in memory. `isOpen` holds 255 for a column
// whose walk has not met the outline yet, else 0.
void PaintOpenColumns(unsigned char* __restrict row, int width, unsigned char* __restrict isOpen) {
  for (int x = 0; x < width; ++x) {
    const unsigned char level = row[x];
    const unsigned char open = level == kOutlineLevel ? 0 : isOpen[x];
    isOpen[x] = open;
    row[x] = static_cast<unsigned char>((open & kOutsideLevel) | (~open & level));
  }
}

bool HasOpenColumn(const std::vector<unsigned char>& isOpen) {
  return std::memchr(isOpen.data(), kOpen, isOpen.size()) != nullptr;
}

}  // namespace

bool MarkOutsideRegion(unsigned char* image, int width, int height) {
  if (width < 1 || height < 1) {
    return true;
  }
  for (int y = 0; y < height; ++y) {
    PaintRowEnds(image + PixelOffset(0, y, width), width);
  }
  std::vector<unsigned char> isOpen(static_cast<std::size_t>(width), kOpen);
  for (int y = 0; y < height && HasOpenColumn(isOpen); ++y) {
    PaintOpenColumns(image + PixelOffset(0, y, width), width, isOpen.data());
  }
  isOpen.assign(isOpen.size(), kOpen);
  for (int y = height - 1; y >= 0 && HasOpenColumn(isOpen); --y) {
    PaintOpenColumns(image + PixelOffset(0, y, width), width, isOpen.data());
  }
  return true;
}

}  // namespace quorvex
