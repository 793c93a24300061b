#include "preprocess/outline_drawing.h"

#include <cmath>
#include <cstddef>

#include "base/gray_image.h"
#include "base/rounding.h"
#include "preprocess/outline_level.h"

namespace quorvex {
namespace {

void Paint(unsigned char* image, int width, int height, PixelPosition point) {
  if (IsInside(point.x, point.y, width, height)) {
    image[PixelOffset(point.x, point.y, width)] = kOutlineLevel;
  }
}

// The positions of the side from `from` to `to`, two a pixel; none when the side has no length.
OutlineList SidePositions(PixelPosition from, PixelPosition to) {
  const double dx = static_cast<double>(to.x) - from.x;
  const double dy = static_cast<double>(to.y) - from.y;
  const int length = TruncateToInt(std::sqrt(dx * dx + dy * dy + 0.5));
  OutlineList positions;
  if (length == 0) {
    return positions;
  }
  const float ux = static_cast<float>(dx) / static_cast<float>(length);
  const float uy = static_cast<float>(dy) / static_cast<float>(length);
  for (int s = 0; s <= 2 * length - 1; ++s) {
    const float step = static_cast<float>(s);
    positions.push_back(
        {from.x + RoundHalfUp(ux * step * 0.5f), from.y + RoundHalfUp(uy * step * 0.5f)});
  }
  return positions;
}

// Paints one side and returns its positions; a side without length is its first point alone, which
// adds no position.
OutlineList DrawSide(unsigned char* image, int width, int height, PixelPosition from,
                     PixelPosition to) {
  OutlineList positions = SidePositions(from, to);
  if (positions.empty()) {
    Paint(image, width, height, from);
  }
  for (const PixelPosition& position : positions) {
    Paint(image, width, height, position);
  }
  return positions;
}

}  // namespace

bool DrawOutline(unsigned char* image, int width, int height, OutlineList& outline) {
  if (outline.size() < 2) {
    return false;
  }
  const std::size_t count = outline.size();
  for (std::size_t i = 0; i + 1 < count; ++i) {
    const OutlineList side = DrawSide(image, width, height, outline[i], outline[i + 1]);
    outline.insert(outline.end(), side.begin(), side.end());
  }
  // The closing side adds nothing to the list: only the open sides count as edge of the target.
  DrawSide(image, width, height, outline[count - 1], outline[0]);
  return true;
}

}  // namespace quorvex
