#include "grid/cross_probe.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <vector>

#include "base/gray_image.h"
#include "base/pixel_position.h"
#include "base/rounding.h"

namespace quorvex {
namespace {

constexpr long long kBorderMargin = 50;  // pixels that a probe keeps from the target's border
constexpr int kAcrossReach = 99;         // pixels to either side of the direction
constexpr unsigned char kStroke = 255;
constexpr int kShortestProfile = 121;    // entries that a profile must exceed
constexpr int kFirstBox = 118;           // entry at which the search starts
constexpr int kBoxSize = 4;              // entries
constexpr float kGatheredAbove = 40.0f;  // stroke pixels in a box

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

// The extent of the target along the image's rows or along its columns.
struct TargetSpans {
  bool isAlongRow;
  const PixelSpanList& spans;
  int width;
  int height;

  // Whether a position is well within the span of its line; a line beyond the image spans all of
  // it.
  bool Holds(PixelPosition position) const {
    const int value = isAlongRow ? position.x : position.y;
    const int line = isAlongRow ? position.y : position.x;
    const int lines = isAlongRow ? height : width;
    const int length = isAlongRow ? width : height;
    const bool hasSpan = line >= 0 && line < lines;
    return IsWithinSpan(value,
                        hasSpan ? spans[static_cast<std::size_t>(line)] : PixelSpan{0, length - 1});
  }
};

// The pixels that are counted across a walk, as offsets from the walk's position. The two sides
// round differently: along an image axis the second side repeats the centre and ends at -98.
class AcrossLine {
 public:
  AcrossLine(const GrayView& image, const Walk& walk) : image_(image) {
    int count = 0;
    for (int s = 0; s <= kAcrossReach; ++s) {
      const float step = static_cast<float>(s);
      offsets_[count++] = {RoundHalfUp(step * -walk.dy), RoundHalfUp(step * walk.dx)};
    }
    for (int s = 1; s <= kAcrossReach; ++s) {
      const float step = static_cast<float>(s);
      offsets_[count++] = {RoundHalfUp(step * walk.dy), RoundHalfUp(step * -walk.dx)};
    }
    for (int i = 0; i < kSamples; ++i) {
      reachX_ = std::max(reachX_, std::abs(static_cast<long long>(offsets_[i].x)));
      reachY_ = std::max(reachY_, std::abs(static_cast<long long>(offsets_[i].y)));
      inMemory_[i] = static_cast<std::ptrdiff_t>(offsets_[i].y) * image.width + offsets_[i].x;
    }
  }

  // The image's outermost pixels do not count.
  int CountStrokes(PixelPosition position) const {
    return IsInner(position.x - reachX_, position.y - reachY_) &&
                   IsInner(position.x + reachX_, position.y + reachY_)
               ? CountInner(position)
               : CountNearBorder(position);
  }

 private:
  static constexpr int kSamples = 2 * kAcrossReach + 1;

  bool IsInner(long long x, long long y) const {
    return x >= 1 && x <= image_.width - 2 && y >= 1 && y <= image_.height - 2;
  }

  int CountInner(PixelPosition position) const {
    const unsigned char* centre = image_.pixels + PixelOffset(position.x, position.y, image_.width);
    int count = 0;
    for (int i = 0; i < kSamples; ++i) {
      count += centre[inMemory_[i]] == kStroke ? 1 : 0;
    }
    return count;
  }

  int CountNearBorder(PixelPosition position) const {
    int count = 0;
    for (const PixelPosition& offset : offsets_) {
      const long long x = static_cast<long long>(position.x) + offset.x;
      const long long y = static_cast<long long>(position.y) + offset.y;
      count += IsInner(x, y) && image_.At(static_cast<int>(x), static_cast<int>(y)) == kStroke;
    }
    return count;
  }

  const GrayView& image_;
  PixelPosition offsets_[kSamples];
  std::ptrdiff_t inMemory_[kSamples];  // of the same pixels, while all of them are inner ones
  long long reachX_ = 0;               // pixels
  long long reachY_ = 0;
};

// The stroke pixels across a walk, one entry a step, up to where the walk leaves the target.
// Entries are made when they are asked for: the search ends long before the walk.
class Profile {
 public:
  Profile(const GrayView& image, const Walk& walk, const TargetSpans& target, int steps)
      : walk_(walk), target_(target), steps_(steps), across_(image, walk) {}

  bool Reaches(int entry) {
    while (length_ <= entry && length_ < steps_) {
      const PixelPosition position = walk_.At(length_);
      if (!target_.Holds(position)) {
        steps_ = length_;
        break;
      }
      // Earlier entries are nobody's.
      if (length_ >= kFirstBox) {
        counts_.push_back(static_cast<float>(across_.CountStrokes(position)));
      }
      ++length_;
    }
    return length_ > entry;
  }

  // Of an entry from kFirstBox on that the profile reaches.
  float operator[](int entry) const { return counts_[static_cast<std::size_t>(entry - kFirstBox)]; }

 private:
  const Walk& walk_;
  const TargetSpans& target_;
  int steps_;
  AcrossLine across_;
  int length_ = 0;
  std::vector<float> counts_;
};

// The first step at which four neighbouring entries gather enough strokes; 0 when there is none.
// The running sum starts one entry early: entry 122 is never added but is subtracted once. The
// search was tuned with that.
int FindGathering(Profile& profile) {
  if (!profile.Reaches(kShortestProfile)) {
    return 0;
  }
  float sum =
      profile[kFirstBox] + profile[kFirstBox + 1] + profile[kFirstBox + 2] + profile[kFirstBox + 3];
  for (int k = kFirstBox; profile.Reaches(k + kBoxSize - 1); ++k) {
    sum -= profile[k];
    if (profile.Reaches(k + kBoxSize + 1)) {
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
  const TargetSpans target{isAlongRow, isAlongRow ? rowSpans : columnSpans, width, height};
  Profile profile(view, walk, target, steps);
  const int found = FindGathering(profile);
  if (found == 0) {
    return false;
  }
  const PixelPosition position = walk.At(found);
  next = {static_cast<float>(position.x), static_cast<float>(position.y)};
  return true;
}

}  // namespace quorvex
