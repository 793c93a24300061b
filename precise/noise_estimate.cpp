#include "precise/noise_estimate.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace quorvex::precise {
namespace {

constexpr double kLeastNoise = 0.3;        // grey levels; rounding alone gives 0.29
constexpr double kMaskGain = 6.0;          // the mask's response to noise of sigma 1 has sigma 6
constexpr double kMedianToSigma = 1.4826;  // of the magnitudes of a normal distribution
constexpr int kRowsLookedAt = 100;         // evenly spread; 50,000 pixels and more fix a median
constexpr int kLargestResponse = 8 * 255;  // of the mask, either sign

}  // namespace

double EstimateNoise(const GrayPicture& picture) {
  std::array<std::uint32_t, kLargestResponse + 1> histogram{};
  std::uint32_t count = 0;
  const int step = std::max(1, picture.Height() / kRowsLookedAt);
  for (int y = 1; y + 1 < picture.Height(); y += step) {
    const std::uint8_t* above = picture.Row(y - 1);
    const std::uint8_t* row = picture.Row(y);
    const std::uint8_t* below = picture.Row(y + 1);
    int left = above[0] - 2 * row[0] + below[0];
    int middle = above[1] - 2 * row[1] + below[1];
    for (int x = 1; x + 1 < picture.Width(); ++x) {
      const int right = above[x + 1] - 2 * row[x + 1] + below[x + 1];
      ++histogram[static_cast<std::size_t>(std::abs(left - 2 * middle + right))];
      ++count;
      left = middle;
      middle = right;
    }
  }
  std::size_t median = 0;
  std::uint32_t below = histogram[0];
  while (median < kLargestResponse && 2 * below < count) {
    ++median;
    below += histogram[median];
  }
  return std::max(kLeastNoise, static_cast<double>(median) / kMaskGain * kMedianToSigma);
}

}  // namespace quorvex::precise
