#include "tools/detect/picture_measures.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace quorvex::tools {
namespace {

constexpr int kWhite = 128;  // grey level
constexpr std::size_t kLevels = 256;
constexpr double kBrightestShare = 0.001;  // of the pixels

// Whether the grey levels around a pixel have reached the end of their range, where noise is cut
// off.
bool IsCutOff(const Picture& picture, int x, int y) {
  for (int row = y - 1; row <= y + 1; ++row) {
    for (int column = x - 1; column <= x + 1; ++column) {
      if (picture.At(column, row) == 0 || picture.At(column, row) == kLevels - 1) {
        return true;
      }
    }
  }
  return false;
}

// The value that `share` of the counted ones do not exceed.
std::size_t Quantile(const std::vector<std::int64_t>& counts, double share) {
  double total = 0;
  for (const std::int64_t count : counts) {
    total += static_cast<double>(count);
  }
  double passed = 0;
  for (std::size_t value = 0; value < counts.size(); ++value) {
    passed += static_cast<double>(counts[value]);
    if (passed > 0 && passed >= share * total) {
      return value;
    }
  }
  return 0;
}

}  // namespace

WhitePixels FindWhite(const Picture& picture, int x0, int y0, int x1, int y1) {
  WhitePixels white;
  for (int y = std::max(y0, 0); y < std::min(y1, picture.height); ++y) {
    for (int x = std::max(x0, 0); x < std::min(x1, picture.width); ++x) {
      if (picture.At(x, y) < kWhite) {
        continue;
      }
      if (white.count++ == 0) {
        white.left = white.right = x, white.top = white.bottom = y;
      }
      white.left = std::min(white.left, x);
      white.right = std::max(white.right, x);
      white.bottom = y;
      white.sumX += x;
      white.sumY += y;
      white.sumXX += static_cast<double>(x) * x;
      white.sumXY += static_cast<double>(x) * y;
      white.sumYY += static_cast<double>(y) * y;
    }
  }
  return white;
}

WhitePixels FindWhite(const Picture& picture) {
  return FindWhite(picture, 0, 0, picture.width, picture.height);
}

double Elongation(const WhitePixels& white) {
  const double n = static_cast<double>(white.count);
  const double xx = white.sumXX / n - white.sumX / n * (white.sumX / n);
  const double xy = white.sumXY / n - white.sumX / n * (white.sumY / n);
  const double yy = white.sumYY / n - white.sumY / n * (white.sumY / n);
  const double mean = (xx + yy) / 2;
  const double half = std::hypot((xx - yy) / 2, xy);
  return (mean + half) / std::max(mean - half, 1e-6);
}

int BrightestLevel(const Picture& picture) {
  std::vector<std::int64_t> counts(kLevels);
  for (const std::uint8_t level : picture.pixels) {
    ++counts[level];
  }
  return static_cast<int>(Quantile(counts, 1 - kBrightestShare));
}

// Immerkaer, 1996, with the median in place of the mean, so that edges do not count as noise.
double NoiseLevel(const Picture& picture) {
  // The weights 1 -2 1, -2 4 -2, 1 -2 1: their squares' sum is 36, so noise comes out six times as
  // large, and the largest value is 8 * 255.
  constexpr double kGain = 6;
  constexpr double kMedianOfSigma1 = 0.6745;  // of the magnitude of a Gaussian
  std::vector<std::int64_t> counts(8 * 255 + 1);
  for (int y = 1; y + 1 < picture.height; ++y) {
    for (int x = 1; x + 1 < picture.width; ++x) {
      const auto second = [&](int row) {
        return picture.At(x - 1, row) - 2 * picture.At(x, row) + picture.At(x + 1, row);
      };
      if (IsCutOff(picture, x, y)) {
        continue;
      }
      ++counts[static_cast<std::size_t>(std::abs(second(y - 1) - 2 * second(y) + second(y + 1)))];
    }
  }
  return static_cast<double>(Quantile(counts, 0.5)) / kGain / kMedianOfSigma1;
}

}  // namespace quorvex::tools
