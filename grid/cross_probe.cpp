#include "grid/cross_probe.h"

#include <cstddef>
#include <vector>

#include "base/gray_image.h"
#include "base/pixel_position.h"
#include "base/rounding.h"

namespace quorvex {
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

// A walk from the start in steps of the unit direction (dx, dy).
struct Walk {
  PointF start;
  float dx;
  float dy;

  PixelPosition At(int step) const {
    return {PositionAlong(step, dx, start.x), PositionAlong(step, dy, start.y)};
  }
};

bool IsWithinSpan(int value, const PixelSpan& span) {
  return value >= span.first + kBorderMargin && value <= span.last - kBorderMargin;
}

// Whether a coordinate is well within the span of the line that the other one names; a line beyond
// the list spans `length` pixels.
bool IsWithinLine(int value, int line, const PixelSpanList& spans, int lines, int length) {
  const bool hasSpan = line >= 0 && line < lines;
  return IsWithinSpan(value,
                      hasSpan ? spans[static_cast<std::size_t>(line)] : PixelSpan{0, length - 1});
}

bool IsStroke(const GrayView& image, long long x, long long y) {
  return x >= 1 && x <= image.width - 2 && y >= 1 && y <= image.height - 2 &&
         image.At(static_cast<int>(x), static_cast<int>(y)) == kStroke;
}

// The stroke pixels from step `first` on to one side of the position.
int CountToSide(const GrayView& image, PixelPosition position, float stepX, float stepY,
                int first) {
  int count = 0;
  for (int s = first; s <= kAcrossReach; ++s) {
    const long long x =
        position.x + static_cast<long long>(RoundHalfUp(static_cast<float>(s) * stepX));
    const long long y =
        position.y + static_cast<long long>(RoundHalfUp(static_cast<float>(s) * stepY));
    count += IsStroke(image, x, y) ? 1 : 0;
  }
  return count;
}

// The stroke pixels on the line through the position across the walk. The two sides round
// differently: along an image axis the second side repeats the centre and ends at -98.
int CountAcross(const GrayView& image, PixelPosition position, const Walk& walk) {
  return CountToSide(image, position, -walk.dy, walk.dx, 0) +
         CountToSide(image, position, walk.dy, -walk.dx, 1);
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

bool ProbeNextCross(const unsigned char* image, int width, int height, PointF start, ProbeMode mode,
                    float dx, float dy, int steps, const PixelSpanList& rowSpans,
                    const PixelSpanList& columnSpans, PointF& next) {
  const GrayView view{image, width, height};
  const Walk walk{start, dx, dy};
  const bool isAlongRow = mode == kProbeRight || mode == kProbeLeft;
  std::vector<float> profile;  // stroke pixels across the walk, one entry a step
  for (int step = 0; step < steps; ++step) {
    const PixelPosition position = walk.At(step);
    const bool isWithinTarget =
        isAlongRow ? IsWithinLine(position.x, position.y, rowSpans, height, width)
                   : IsWithinLine(position.y, position.x, columnSpans, width, height);
    if (!isWithinTarget) {
      break;
    }
    profile.push_back(static_cast<float>(CountAcross(view, position, walk)));
  }
  if (profile.size() <= kShortestProfile) {
    return false;
  }
  const std::size_t found = FindGathering(profile);
  if (found == 0) {
    return false;
  }
  const PixelPosition position = walk.At(static_cast<int>(found));
  next = {static_cast<float>(position.x), static_cast<float>(position.y)};
  return true;
}

}  // namespace quorvex
