#include "precise/hessian_peaks.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>

namespace quorvex::precise {
namespace {

// The root of the determinant, grey levels per square pixel of the level.
constexpr double kLeastCurvature = 2.0;      // a stroke of 1.5 px, 25 grey levels dark, gives 4
constexpr double kSigmas = 3.6;              // above noise; one peak in some thousand pixels
constexpr double kCurvatureOfNoise = 0.173;  // sigma of a second difference after 1 4 6 4 1

// Of the squared trace: strokes that cross at 24 degrees give 0.04, a single one less.
constexpr double kLeastRoundness = 0.02;

constexpr int kReach = 2;  // pixels on either side that a peak exceeds
constexpr int kRows = 2 * kReach + 1;
constexpr int kBlock = 16;  // pixels that are passed over together

using Rows = std::array<std::vector<int>, kRows>;

// The determinants of row y, from x = 1 to width - 2; 0 where the picture is not darkest. Values
// are at most 255 * 64, so second differences fit into 16 bits and their products into 32.
void DeterminantRow(const PyramidLevel& level, int y, int* to) {
  const std::uint16_t* above = level.Row(y - 1);
  const std::uint16_t* row = level.Row(y);
  const std::uint16_t* below = level.Row(y + 1);
  for (int x = 1; x + 1 < level.width; ++x) {
    const std::int16_t xx = static_cast<std::int16_t>(row[x - 1] - 2 * row[x] + row[x + 1]);
    const std::int16_t yy = static_cast<std::int16_t>(above[x] - 2 * row[x] + below[x]);
    const std::int16_t corners =
        static_cast<std::int16_t>(above[x - 1] - above[x + 1] - below[x - 1] + below[x + 1]);
    const std::int16_t xy = static_cast<std::int16_t>(corners >> 2);
    const int determinant = xx * yy - xy * xy;
    to[x] = xx > 0 ? determinant : 0;
  }
}

// Equal neighbours: the first one in reading order is the peak.
bool IsPeak(const Rows& rows, int y, int x) {
  const int value = rows[static_cast<std::size_t>(y % kRows)][static_cast<std::size_t>(x)];
  for (int dy = -kReach; dy <= kReach; ++dy) {
    const int* row = rows[static_cast<std::size_t>((y + dy) % kRows)].data() + x;
    for (int dx = -kReach; dx <= kReach; ++dx) {
      const bool isEarlier = dy < 0 || (dy == 0 && dx < 0);
      if (row[dx] > value || (isEarlier && row[dx] == value)) {
        return false;
      }
    }
  }
  return true;
}

bool IsRound(const PyramidLevel& level, int x, int y, int determinant) {
  const std::uint16_t* row = level.Row(y) + x;
  const int around = row[-1] + row[1] + level.Row(y - 1)[x] + level.Row(y + 1)[x];
  const double trace = around - 4 * row[0];
  return determinant > kLeastRoundness * trace * trace;
}

void CollectRow(const Rows& rows, const PyramidLevel& level, int y, int threshold,
                std::vector<HessianPeak>& peaks) {
  const int width = level.width;
  const int* row = rows[static_cast<std::size_t>(y % kRows)].data();
  for (int begin = kReach; begin < width - kReach; begin += kBlock) {
    const int end = std::min(begin + kBlock, width - kReach);
    int isAny = 0;
    for (int x = begin; x < end; ++x) {
      isAny |= row[x] > threshold ? 1 : 0;
    }
    for (int x = isAny != 0 ? begin : end; x < end; ++x) {
      if (row[x] > threshold && IsPeak(rows, y, x) && IsRound(level, x, y, row[x])) {
        peaks.push_back({x, y, row[x]});
      }
    }
  }
}

int Threshold(const PyramidLevel& level, double noise) {
  const double ofNoise = kSigmas * kCurvatureOfNoise * noise / level.Scale();
  const double curvature = std::max(kLeastCurvature, ofNoise) * kLevelUnit;
  return static_cast<int>(curvature * curvature);
}

void KeepStrongest(std::size_t most, std::vector<HessianPeak>& peaks) {
  if (peaks.size() <= most) {
    return;
  }
  std::vector<int> strengths;
  strengths.reserve(peaks.size());
  for (const HessianPeak& peak : peaks) {
    strengths.push_back(peak.strength);
  }
  std::nth_element(strengths.begin(), strengths.begin() + static_cast<std::ptrdiff_t>(most),
                   strengths.end(), std::greater<int>());
  const int bound = strengths[most];
  peaks.erase(std::remove_if(peaks.begin(), peaks.end(),
                             [bound](const HessianPeak& peak) { return peak.strength <= bound; }),
              peaks.end());
}

}  // namespace

std::vector<HessianPeak> FindHessianPeaks(const PyramidLevel& level, double noise,
                                          std::size_t most) {
  std::vector<HessianPeak> peaks;
  Rows rows;
  rows.fill(std::vector<int>(static_cast<std::size_t>(level.width), 0));
  const int threshold = Threshold(level, noise);
  // Row y is judged when row y + kReach is there; the first rows stay 0.
  for (int y = 1; y + 1 < level.height; ++y) {
    DeterminantRow(level, y, rows[static_cast<std::size_t>(y % kRows)].data());
    if (y - kReach >= kReach) {
      CollectRow(rows, level, y - kReach, threshold, peaks);
    }
  }
  KeepStrongest(most, peaks);
  return peaks;
}

}  // namespace quorvex::precise
