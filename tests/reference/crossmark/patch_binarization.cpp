#include "tests/reference/crossmark.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "crossmark/patch.h"

namespace quorvex::plain {
namespace {

constexpr int kWindowReach = 20;        // pixels to each side
constexpr double kDynamicRange = 40.0;  // of the deviation, grey levels

struct Window {
  int left;
  int top;
  int right;   // inclusive
  int bottom;  // inclusive
};

// Running totals over all rows and columns up to a pixel; 64 bits, so that squares cannot overflow.
class IntegralTable {
 public:
  IntegralTable() : totals_(kPatchArea) {}

  void Set(int x, int y, std::uint64_t rowTotal) {
    totals_[Index(x, y)] = rowTotal + (y > 0 ? totals_[Index(x, y - 1)] : 0);
  }

  std::uint64_t Sum(const Window& window) const {
    return At(window.right, window.bottom) - At(window.right, window.top - 1) -
           At(window.left - 1, window.bottom) + At(window.left - 1, window.top - 1);
  }

 private:
  static std::size_t Index(int x, int y) { return static_cast<std::size_t>(y * kPatchSize + x); }

  std::uint64_t At(int x, int y) const { return x < 0 || y < 0 ? 0 : totals_[Index(x, y)]; }

  std::vector<std::uint64_t> totals_;
};

void FillTables(const unsigned char* source, IntegralTable& sums, IntegralTable& squares) {
  for (int y = 0; y < kPatchSize; ++y) {
    std::uint64_t rowSum = 0;
    std::uint64_t rowSquares = 0;
    for (int x = 0; x < kPatchSize; ++x) {
      const std::uint64_t value = source[y * kPatchSize + x];
      rowSum += value;
      rowSquares += value * value;
      sums.Set(x, y, rowSum);
      squares.Set(x, y, rowSquares);
    }
  }
}

double Threshold(const IntegralTable& sums, const IntegralTable& squares, const Window& window,
                 float k) {
  const double area =
      static_cast<double>((window.bottom - window.top + 1) * (window.right - window.left + 1));
  const double sum = static_cast<double>(sums.Sum(window));
  const double squareSum = static_cast<double>(squares.Sum(window));
  const double mean = sum / area;
  // In single precision on purpose, up to the root.
  const float variance =
      std::fabs(static_cast<float>((squareSum - sum * sum / area) / (area - 1.0)));
  const double deviation = std::sqrt(static_cast<double>(variance));
  return mean * (1.0 + static_cast<double>(k) * (deviation / kDynamicRange - 1.0));
}

}  // namespace

void SauvolaBinarize(const unsigned char* source, unsigned char* destination, float k) {
  IntegralTable sums;
  IntegralTable squares;
  FillTables(source, sums, squares);
  for (int y = 0; y < kPatchSize; ++y) {
    for (int x = 0; x < kPatchSize; ++x) {
      const Window window{std::max(x - kWindowReach, 0), std::max(y - kWindowReach, 0),
                          std::min(x + kWindowReach, kPatchSize - 1),
                          std::min(y + kWindowReach, kPatchSize - 1)};
      const int offset = y * kPatchSize + x;
      // A pixel equal to the threshold is white.
      destination[offset] = Threshold(sums, squares, window, k) > source[offset] ? 0 : 255;
    }
  }
}

}  // namespace quorvex::plain
