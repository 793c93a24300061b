#include "tests/reference/grid.h"

#include <cstddef>
#include <vector>

#include "base/gray_image.h"
#include "base/pixel_position.h"
#include "base/rounding.h"
#include "grid/cross_probe.h"

namespace quorvex::plain {
namespace {

constexpr long long kBorderMargin = 50;  // pixels that a probe keeps from the target's border
constexpr int kAcrossReach = 99;         // pixels to either side of the direction
constexpr unsigned char kStroke = 255;
constexpr std::size_t kShortestProfile = 121;  // entries that a profile must exceed
constexpr std::size_t kFirstBox = 118;         // entry at which the search starts
constexpr std::size_t kBoxSize = 4;            // entries
constexpr float kGatheredAbove = 40.0f;        // stroke pixels in a box

// A step along the direction from the start. Rounding the offset and cutting the sum are two
// separate truncations.
int PositionAlong(int step, float direction, float start) {
  const int offset = RoundHalfUp(static_cast<float>(step) * direction);
  return TruncateToInt(static_cast<float>(offset) + start);
}

PixelPosition PositionAt(int step, PointF start, float dx, float dy) {
  return {PositionAlong(step, dx, start.x), PositionAlong(step, dy, start.y)};
}

bool IsWithinSpan(int value, const PixelSpan& span) {
  return value >= span.first + kBorderMargin && value <= span.last - kBorderMargin;
}

bool IsWithinTarget(PixelPosition position, int width, int height, int mode,
                    const PixelSpanList& rowSpans, const PixelSpanList& columnSpans) {
  if (mode == kProbeRight || mode == kProbeLeft) {
    const bool hasSpan = position.y >= 0 && position.y < height;
    return IsWithinSpan(position.x, hasSpan ? rowSpans[static_cast<std::size_t>(position.y)]
                                            : PixelSpan{0, width - 1});
  }
  const bool hasSpan = position.x >= 0 && position.x < width;
  return IsWithinSpan(position.y, hasSpan ? columnSpans[static_cast<std::size_t>(position.x)]
                                          : PixelSpan{0, height - 1});
}

bool IsStroke(const unsigned char* image, int width, int height, long long x, long long y) {
  return x >= 1 && x <= width - 2 && y >= 1 && y <= height - 2 &&
         image[PixelOffset(static_cast<int>(x), static_cast<int>(y), width)] == kStroke;
}

// The stroke pixels on the line through the position across the direction (dx, dy). The two sides
// round differently: along an image axis the second side repeats the centre and ends at -98.
int CountAcross(const unsigned char* image, int width, int height, PixelPosition position, float dx,
                float dy) {
  const float px = -dy;
  const float py = dx;
  int count = 0;
  for (int s = 0; s <= kAcrossReach; ++s) {
    const long long x =
        position.x + static_cast<long long>(RoundHalfUp(static_cast<float>(s) * px));
    const long long y =
        position.y + static_cast<long long>(RoundHalfUp(static_cast<float>(s) * py));
    count += IsStroke(image, width, height, x, y) ? 1 : 0;
  }
  for (int s = 1; s <= kAcrossReach; ++s) {
    const long long x =
        position.x + static_cast<long long>(RoundHalfUp(-(static_cast<float>(s) * px)));
    const long long y =
        position.y + static_cast<long long>(RoundHalfUp(-(static_cast<float>(s) * py)));
    count += IsStroke(image, width, height, x, y) ? 1 : 0;
  }
  return count;
}

// The first step at which four neighbouring entries gather enough strokes; 0 when there is none.
// The running sum starts one entry early: entry 122 is never added but is subtracted once. The
// search was tuned with that.
std::size_t FindGathering(const std::vector<float>& profile) {
  const std::size_t size = profile.size();
  float sum =
      profile[kFirstBox] + profile[kFirstBox + 1] + profile[kFirstBox + 2] + profile[kFirstBox + 3];
  for (std::size_t k = kFirstBox; k + kBoxSize - 1 < size; ++k) {
    sum -= profile[k];
    if (k + kBoxSize + 1 < size) {
      sum += profile[k + kBoxSize + 1];
    }
    if (sum > kGatheredAbove) {
      return k + kBoxSize - 1;
    }
  }
  return 0;
}

}  // namespace

bool ProbeNextCross(const unsigned char* image, int width, int height, PointF start, int mode,
                    float dx, float dy, int steps, const PixelSpanList& rowSpans,
                    const PixelSpanList& columnSpans, PointF& next) {
  std::vector<float> profile;  // stroke pixels across the direction, one entry a step
  for (int step = 0; step < steps; ++step) {
    const PixelPosition position = PositionAt(step, start, dx, dy);
    if (!IsWithinTarget(position, width, height, mode, rowSpans, columnSpans)) {
      break;
    }
    profile.push_back(static_cast<float>(CountAcross(image, width, height, position, dx, dy)));
  }
  if (profile.size() <= kShortestProfile) {
    return false;
  }
  const std::size_t found = FindGathering(profile);
  if (found == 0) {
    return false;
  }
  const PixelPosition position = PositionAt(static_cast<int>(found), start, dx, dy);
  next = {static_cast<float>(position.x), static_cast<float>(position.y)};
  return true;
}

}  // namespace quorvex::plain
