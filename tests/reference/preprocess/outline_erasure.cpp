#include "tests/reference/preprocess.h"

#include <algorithm>
#include <cstring>

#include "base/gray_image.h"

namespace quorvex::plain {
namespace {

// The square is one pixel longer towards smaller coordinates.
constexpr long long kReachBefore = 10;  // pixels
constexpr long long kReachBehind = 9;   // pixels

}  // namespace

bool EraseOutlineEdges(unsigned char* image, int width, int height, OutlineList& outline) {
  for (const PixelPosition& point : outline) {
    const long long left = std::max(point.x - kReachBefore, 0LL);
    const long long right = std::min(point.x + kReachBehind, width - 1LL);
    const long long top = std::max(point.y - kReachBefore, 0LL);
    const long long bottom = std::min(point.y + kReachBehind, height - 1LL);
    for (long long y = top; y <= bottom && left <= right; ++y) {
      std::memset(image + PixelOffset(static_cast<int>(left), static_cast<int>(y), width), 0,
                  static_cast<std::size_t>(right - left + 1));
    }
  }
  OutlineList().swap(outline);
  return true;
}

}  // namespace quorvex::plain
