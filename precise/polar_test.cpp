#include "precise/polar_test.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace quorvex::precise {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr int kAngles = 48;  // 7.5 degrees apart
constexpr int kRadii = kFarthestRadius - kNearestRadius + 1;
constexpr double kSideDistance = 3.0;       // px of the level
constexpr double kLeastResponse = 1.2;      // grey levels
constexpr double kLeastOfStrongest = 0.35;  // of the strongest arm's response
// Response over the picture's noise that four arms by chance do not reach, for each level.
constexpr std::array<double, kLevels> kLeastOverNoise = {0.8, 0.5, 0.3};
constexpr int kDarkRadii = 6;                      // of 8 must be dark
constexpr double kDark = 0.3;                      // of the mean response of the direction
constexpr double kOppositeSlack = 20 * kPi / 180;  // a bow and an oblique view bend strokes by less
constexpr double kLeastCrossing = 24 * kPi / 180;  // between the two strokes
constexpr int kMostPeaks = 8;                      // arms that are tried for pairs

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

struct Responses {
  std::array<int, kAngles>
      sums{};  // over the radii, 64 to a grey level; 0 where something is outside
  std::array<bool, kAngles> isDark{};  // at most radii
};

Responses MeasureResponses(const PyramidLevel& level, int x, int y) {
  const Circles& circles = AllCircles();
  constexpr int kReach = (kFarthestRadius + 1) * kFraction;
  const bool isInside =
      level.HoldsFixed(x - kReach, y - kReach) && level.HoldsFixed(x + kReach, y + kReach);
  Depths allDepths;
  std::array<PaddedCircle, kRadii> values;
  std::array<int, kAngles> signs{};  // negative where a value lies outside
  Responses responses;
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

struct Peak {
  double angle;
  double response;  // grey levels
};

// Directions whose response exceeds that of their two neighbours on either side.
std::vector<Peak> FindPeaks(const Responses& responses, double noiseBound) {
  const auto at = [&responses](int k) {
    return responses.sums[static_cast<std::size_t>((k + kAngles) % kAngles)];
  };
  int strongest = 0;
  for (std::size_t k = 0; k < kAngles; ++k) {
    strongest = std::max(strongest, responses.isDark[k] ? responses.sums[k] : 0);
  }
  constexpr double kUnits = kRadii * kLevelUnit;
  const double bound = std::max({kLeastResponse * kUnits, noiseBound * kUnits,
                                 kLeastOfStrongest * static_cast<double>(strongest)});
  std::vector<Peak> peaks;
  for (int k = 0; k < kAngles; ++k) {
    const int value = at(k);
    if (value < bound || !responses.isDark[static_cast<std::size_t>(k)] || value < at(k - 1) ||
        value <= at(k + 1) || value < at(k - 2) || value <= at(k + 2)) {
      continue;
    }
    const double bend = at(k - 1) - 2.0 * value + at(k + 1);
    const double shift = bend < 0 ? 0.5 * (at(k - 1) - at(k + 1)) / bend : 0.0;
    peaks.push_back({2 * kPi * (k + shift) / kAngles, value / kUnits});
  }
  if (peaks.size() > kMostPeaks) {
    std::stable_sort(peaks.begin(), peaks.end(),
                     [](const Peak& a, const Peak& b) { return a.response > b.response; });
    peaks.resize(kMostPeaks);
  }
  return peaks;
}

// The angle brought to -pi .. pi.
double Wrapped(double angle) { return angle - 2 * kPi * std::floor(angle / (2 * kPi) + 0.5); }

// Two arms of one stroke, or one arm alone (second < 0).
struct Stroke {
  int first;
  int second;
  double angle;  // of the stroke; arm `first` lies within the slack of it
  double response;
};

std::vector<Stroke> FindStrokes(const std::vector<Peak>& peaks) {
  std::vector<Stroke> strokes;
  const int count = static_cast<int>(peaks.size());
  for (int i = 0; i < count; ++i) {
    const Peak& a = peaks[static_cast<std::size_t>(i)];
    strokes.push_back({i, -1, a.angle, a.response});
    for (int j = i + 1; j < count; ++j) {
      const Peak& b = peaks[static_cast<std::size_t>(j)];
      const double bend = Wrapped(b.angle - a.angle - kPi);
      if (std::fabs(bend) < kOppositeSlack) {
        strokes.push_back({i, j, a.angle + bend / 2, a.response + b.response});
      }
    }
  }
  return strokes;
}

// Whether the arms of both strokes are different ones, and their strokes cross steeply enough.
bool DoCross(const Stroke& a, const Stroke& b) {
  const bool isShared = a.first == b.first || (a.second >= 0 && a.second == b.second) ||
                        a.first == b.second || a.second == b.first;
  return !isShared && std::fabs(std::sin(a.angle - b.angle)) > std::sin(kLeastCrossing);
}

void SetStroke(const Stroke& stroke, const std::vector<Peak>& peaks, std::size_t first,
               PolarArms& arms) {
  const Peak& peak = peaks[static_cast<std::size_t>(stroke.first)];
  arms.arms[first] = {true, peak.angle, peak.response};
  PolarArm& opposite = arms.arms[(first + 2) % 4];
  opposite = {false, peak.angle + kPi, 0.0};
  ++arms.seen;
  if (stroke.second >= 0) {
    const Peak& other = peaks[static_cast<std::size_t>(stroke.second)];
    opposite = {true, other.angle, other.response};
    ++arms.seen;
  }
}

}  // namespace

bool MayHaveThreeArms(const PyramidLevel& level, const Eigen::Vector2d& point, double noise) {
  const int x = (ToFixed(point.x()) + kFraction / 2) >> kFractionBits;
  const int y = (ToFixed(point.y()) + kFraction / 2) >> kFractionBits;
  constexpr int kReach = kFarthestRadius + 1;
  if (x < kReach || y < kReach || x + kReach >= level.width || y + kReach >= level.height) {
    return true;
  }
  const double ofNoise = noise * kLeastOverNoise[static_cast<std::size_t>(level.index)];
  const int bound = static_cast<int>(kQuickBound * kLevelUnit * std::max(kLeastResponse, ofNoise));
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

PolarArms FindPolarArms(const PyramidLevel& level, const Eigen::Vector2d& point, double noise) {
  const Responses responses = MeasureResponses(level, ToFixed(point.x()), ToFixed(point.y()));
  const double noiseBound = noise * kLeastOverNoise[static_cast<std::size_t>(level.index)];
  const std::vector<Peak> peaks = FindPeaks(responses, noiseBound);
  const std::vector<Stroke> strokes = FindStrokes(peaks);
  // The two strokes with most arms, then with the strongest response.
  PolarArms best;
  double bestScore = 0.0;
  for (std::size_t i = 0; i < strokes.size(); ++i) {
    for (std::size_t j = i + 1; j < strokes.size(); ++j) {
      const Stroke& a = strokes[i];
      const Stroke& b = strokes[j];
      const double arms = 2 + (a.second >= 0 ? 1 : 0) + (b.second >= 0 ? 1 : 0);
      const double score = arms * 2000 + a.response + b.response;  // responses stay below 4 * 255
      if (score > bestScore && DoCross(a, b)) {
        bestScore = score;
        best = PolarArms();
        SetStroke(a, peaks, 0, best);
        SetStroke(b, peaks, std::sin(b.angle - a.angle) > 0 ? 1 : 3, best);
      }
    }
  }
  return best;
}

}  // namespace quorvex::precise
