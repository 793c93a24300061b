#include "tools/detect/point_judge.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace quorvex::tools {
namespace {

// Lines through the position, a half turn of them, are looked at from the inner to the outer
// radius, to both sides. Medians are taken: a stroke along a line makes it dark throughout, while
// noise, or a stroke that crosses it, does not.
constexpr int kDirections = 36;     // 5 degrees apart
constexpr int kInnerRadius = 4;     // pixels; nearer to the middle both strokes are dark
constexpr int kOuterRadius = 16;    // pixels; arms are 50 pixels and longer
constexpr int kLeastBetween = 9;    // directions, 45 degrees; between the strokes of a slanted mark
constexpr int kSearchRadius = 2;    // pixels, by which a seen position may be off
constexpr double kLeastDepth = 12;  // grey levels; noise alone stays within 3
constexpr double kPi = 3.14159265358979323846;

using LineLevels = std::array<double, kDirections>;

bool IsInside(const Picture& picture, double x, double y) {
  return x >= 0 && y >= 0 && x <= picture.width - 1 && y <= picture.height - 1;
}

double LevelAt(const Picture& picture, double x, double y) {
  const double insideX = std::clamp(x, 0.0, picture.width - 1.0);
  const double insideY = std::clamp(y, 0.0, picture.height - 1.0);
  const int left = std::min(static_cast<int>(insideX), std::max(picture.width - 2, 0));
  const int top = std::min(static_cast<int>(insideY), std::max(picture.height - 2, 0));
  const int right = std::min(left + 1, picture.width - 1);
  const int bottom = std::min(top + 1, picture.height - 1);
  const double rightShare = insideX - left;
  const double bottomShare = insideY - top;
  const double above =
      picture.At(left, top) * (1 - rightShare) + picture.At(right, top) * rightShare;
  const double below =
      picture.At(left, bottom) * (1 - rightShare) + picture.At(right, bottom) * rightShare;
  return above * (1 - bottomShare) + below * bottomShare;
}

// The middle one of the levels on one side of a line.
double MeasureSide(const Picture& picture, double x, double y, double cosine, double sine) {
  std::array<double, kOuterRadius - kInnerRadius + 1> levels;
  for (int radius = kInnerRadius; radius <= kOuterRadius; ++radius) {
    levels[static_cast<std::size_t>(radius - kInnerRadius)] =
        LevelAt(picture, x + radius * cosine, y + radius * sine);
  }
  const auto middle = levels.begin() + levels.size() / 2;
  std::nth_element(levels.begin(), middle, levels.end());
  return *middle;
}

// Of each line its brighter side, so that a stroke must run along both.
LineLevels MeasureLines(const Picture& picture, double x, double y) {
  LineLevels levels;
  for (int direction = 0; direction < kDirections; ++direction) {
    const double angle = kPi * direction / kDirections;
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    levels[static_cast<std::size_t>(direction)] = std::max(
        MeasureSide(picture, x, y, cosine, sine), MeasureSide(picture, x, y, -cosine, -sine));
  }
  return levels;
}

// By how much the fainter of the two darkest lines, apart from each other, is darker than the
// board, for which the middle one of all lines stands.
double SecondStrokeDepth(const LineLevels& levels) {
  LineLevels sorted = levels;
  std::nth_element(sorted.begin(), sorted.begin() + kDirections / 2, sorted.end());
  const double board = sorted[kDirections / 2];
  const std::ptrdiff_t first = std::min_element(levels.begin(), levels.end()) - levels.begin();
  double second = board;
  for (int between = kLeastBetween; between <= kDirections - kLeastBetween; ++between) {
    second = std::min(second, levels[static_cast<std::size_t>((first + between) % kDirections)]);
  }
  return board - second;
}

}  // namespace

PointKind JudgePoint(const Picture& picture, double x, double y) {
  if (!IsInside(picture, x, y)) {
    return PointKind::kFilled;
  }
  for (int down = -kSearchRadius; down <= kSearchRadius; ++down) {
    for (int right = -kSearchRadius; right <= kSearchRadius; ++right) {
      if (SecondStrokeDepth(MeasureLines(picture, x + right, y + down)) >= kLeastDepth) {
        return PointKind::kSeen;
      }
    }
  }
  return PointKind::kFilled;
}

}  // namespace quorvex::tools
