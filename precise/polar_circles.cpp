#include "precise/polar_circles.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace quorvex::precise {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr int kRadii = kFarthestRadius - kNearestRadius + 1;
constexpr int kDarkRadii = 6;  // of 8 must be dark
constexpr double kDark = 0.3;  // of the mean response of the direction

// The sides of a spoke, 3 px away from it, are interpolated between the 48 directions of a circle
// that passes nearby: its radius, and how many directions away from the spoke, in eighths.
struct Side {
  int radius;   // px of the level
  int eighths;  // of 7.5 degrees
};
constexpr std::array<Side, kRadii> kSides = {
    {{5, 39}, {6, 33}, {7, 28}, {8, 25}, {9, 22}, {9, 20}, {10, 18}, {11, 16}}};
constexpr int kPad = 6;       // the widest of them
constexpr int kOutside = -1;  // in place of a value outside of the level

// The quick look: one circle within short arms, one where oblique strokes are apart; their sides
// are directions away.
struct QuickCircle {
  int radius;  // px of the level
  int side;    // of 7.5 degrees; about 3 px
};
constexpr std::array<QuickCircle, 2> kQuickCircles = {{{5, 5}, {9, 3}}};
constexpr double kQuickBound = 0.5;  // of the response that arms need
constexpr double kQuickShare = 0.2;  // of the deepest; the test asks for more, but of means

// Offsets in 1/256 pixels.
struct Offset {
  int x;
  int y;
};

using Circles = std::array<std::array<Offset, kAngles>, kRadii>;

Circles MakeCircles() {
  Circles circles{};
  for (int r = 0; r < kRadii; ++r) {
    for (int k = 0; k < kAngles; ++k) {
      const double angle = 2 * kPi * k / kAngles;
      const double radius = kNearestRadius + r;
      circles[static_cast<std::size_t>(r)][static_cast<std::size_t>(k)] = {
          ToFixed(radius * std::cos(angle)), ToFixed(radius * std::sin(angle))};
    }
  }
  return circles;
}

using PaddedCircle = std::array<int, kAngles + 2 * kPad>;

void RepeatEnds(PaddedCircle& values) {
  for (std::size_t k = 0; k < kPad; ++k) {
    values[k] = values[k + kAngles];
    values[k + kAngles + kPad] = values[k + kPad];
  }
}

// The values along a circle, repeated at both ends.
void SampleCircle(const PyramidLevel& level, int x, int y,
                  const std::array<Offset, kAngles>& circle, bool isInside, PaddedCircle& values) {
  for (std::size_t k = 0; k < kAngles; ++k) {
    const int px = x + circle[k].x;
    const int py = y + circle[k].y;
    values[k + kPad] = isInside || level.HoldsFixed(px, py) ? level.SampleFixed(px, py) : kOutside;
  }
  RepeatEnds(values);
}

const Circles& AllCircles() {
  static const Circles circles = MakeCircles();
  return circles;
}

// How many separate stretches of a circle are darker than their sides by more than the bound, and
// by more than a share of the darkest one.
int DarkStretches(const PaddedCircle& values, int side, int bound) {
  std::array<int, kAngles> depths;
  const int* middle = values.data() + kPad;
  int deepest = 0;
  for (int k = 0; k < kAngles; ++k) {
    const int depth = std::min(middle[k - side], middle[k + side]) - middle[k];
    depths[static_cast<std::size_t>(k)] = depth;
    deepest = std::max(deepest, depth);
  }
  const int least = std::max(bound, static_cast<int>(kQuickShare * deepest));
  int stretches = 0;
  bool before = depths[kAngles - 1] > least;
  for (const int depth : depths) {
    const bool isDark = depth > least;
    stretches += isDark && !before ? 1 : 0;
    before = isDark;
  }
  return stretches;
}

using Depths = std::array<std::array<int, kAngles>, kRadii>;

}  // namespace

PolarResponses MeasureResponses(const PyramidLevel& level, const Eigen::Vector2d& point) {
  const int x = ToFixed(point.x());
  const int y = ToFixed(point.y());
  const Circles& circles = AllCircles();
  constexpr int kReach = (kFarthestRadius + 1) * kFraction;
  const bool isInside =
      level.HoldsFixed(x - kReach, y - kReach) && level.HoldsFixed(x + kReach, y + kReach);
  Depths allDepths;
  std::array<PaddedCircle, kRadii> values;
  std::array<int, kAngles> signs{};  // negative where a value lies outside
  PolarResponses responses;
  for (std::size_t r = 0; r < kRadii; ++r) {
    SampleCircle(level, x, y, circles[r], isInside, values[r]);
  }
  for (std::size_t r = 0; r < kRadii; ++r) {
    const Side side = kSides[r];
    const int steps = side.eighths / 8;
    const int part = side.eighths % 8;
    const int* middle = values[r].data() + kPad;
    const int* circle =
        values[static_cast<std::size_t>(side.radius - kNearestRadius)].data() + kPad;
    const int* after = circle + steps;
    const int* before = circle - steps;
    int* depths = allDepths[r].data();
    int* sums = responses.sums.data();
    for (int k = 0; k < kAngles; ++k) {
      const int right = after[k] * (8 - part) + after[k + 1] * part;
      const int left = before[k] * (8 - part) + before[k - 1] * part;
      const int sides = std::min(left, right) / 8;
      depths[k] = sides - middle[k];
      sums[k] += sides - middle[k];
      signs[static_cast<std::size_t>(k)] |=
          after[k] | after[k + 1] | before[k] | before[k - 1] | middle[k];
    }
  }
  for (std::size_t k = 0; k < kAngles; ++k) {
    const bool isValid = signs[k] >= 0 && responses.sums[k] > 0;
    int dark = 0;
    for (std::size_t r = 0; r < kRadii; ++r) {
      dark += allDepths[r][k] * kRadii > kDark * responses.sums[k] ? 1 : 0;
    }
    responses.sums[k] = isValid ? responses.sums[k] : 0;
    responses.isDark[k] = isValid && dark >= kDarkRadii;
  }
  return responses;
}

bool MayHaveThreeArms(const PyramidLevel& level, const Eigen::Vector2d& point,
                      double leastResponse) {
  const int x = (ToFixed(point.x()) + kFraction / 2) >> kFractionBits;
  const int y = (ToFixed(point.y()) + kFraction / 2) >> kFractionBits;
  constexpr int kReach = kFarthestRadius + 1;
  if (x < kReach || y < kReach || x + kReach >= level.width || y + kReach >= level.height) {
    return true;
  }
  const int bound = static_cast<int>(kQuickBound * kLevelUnit * leastResponse);
  PaddedCircle values;
  for (const QuickCircle& quick : kQuickCircles) {
    // The nearest pixels do.
    const auto& circle = AllCircles()[static_cast<std::size_t>(quick.radius - kNearestRadius)];
    for (std::size_t k = 0; k < kAngles; ++k) {
      const int dx = (circle[k].x + kFraction / 2) >> kFractionBits;
      const int dy = (circle[k].y + kFraction / 2) >> kFractionBits;
      values[k + kPad] = level.Row(y + dy)[x + dx];
    }
    RepeatEnds(values);
    if (DarkStretches(values, quick.side, bound) >= 3) {
      return true;
    }
  }
  return false;
}

}  // namespace quorvex::precise
