#include "precise/polar_test.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace quorvex::precise {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kLeastResponse = 1.2;      // grey levels
constexpr double kLeastOfStrongest = 0.35;  // of the strongest arm's response
// Response over the picture's noise that four arms by chance do not reach, for each level.
constexpr std::array<double, kLevels> kLeastOverNoise = {0.8, 0.5, 0.3};
constexpr double kOppositeSlack = 20 * kPi / 180;  // a bow and an oblique view bend strokes by less
constexpr double kLeastCrossing = 24 * kPi / 180;  // between the two strokes
constexpr int kMostPeaks = 8;                      // arms that are tried for pairs

struct Peak {
  double angle;
  double response;  // grey levels
};

// Directions whose response exceeds that of their two neighbours on either side.
std::vector<Peak> FindPeaks(const PolarResponses& responses, double leastResponse) {
  const auto at = [&responses](int k) {
    return responses.sums[static_cast<std::size_t>((k + kAngles) % kAngles)];
  };
  int strongest = 0;
  for (std::size_t k = 0; k < kAngles; ++k) {
    strongest = std::max(strongest, responses.isDark[k] ? responses.sums[k] : 0);
  }
  constexpr double kUnits = kResponseUnit;
  const double bound =
      std::max(leastResponse * kUnits, kLeastOfStrongest * static_cast<double>(strongest));
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

double LeastResponse(const PyramidLevel& level, double noise) {
  return std::max(kLeastResponse, noise * kLeastOverNoise[static_cast<std::size_t>(level.index)]);
}

PolarArms FindPolarArms(const PyramidLevel& level, const Eigen::Vector2d& point, double noise) {
  const std::vector<Peak> peaks =
      FindPeaks(MeasureResponses(level, point), LeastResponse(level, noise));
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
