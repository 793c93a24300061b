#include "tools/render/picture_effects.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>

namespace quorvex::tools {
namespace {

constexpr double kBlurReach = 4;  // sigmas; what lies beyond is below 1e-4 of the whole

// The weights of the samples that make up a pixel, at the spacing of the samples: the Gaussian
// convolved with the pixel's width. The pixel's own samples stand in the middle.
std::vector<double> PixelWeights(double sigma) {
  const double sampleSigma = sigma * kSamplesPerPixelSide;
  const int reach = static_cast<int>(std::ceil(kBlurReach * sampleSigma));
  const int count = 2 * reach + kSamplesPerPixelSide;
  std::vector<double> weights(static_cast<std::size_t>(count), 0.0);
  double sum = 0;
  for (int offset = -reach; offset <= reach; ++offset) {
    const double distance = sigma == 0 ? 0 : offset / sampleSigma;
    const double weight = std::exp(-0.5 * distance * distance);
    for (int sample = 0; sample < kSamplesPerPixelSide; ++sample) {
      const int index = reach + offset + sample;
      weights[static_cast<std::size_t>(index)] += weight;
      sum += weight;
    }
  }
  for (double& weight : weights) {
    weight /= sum;
  }
  return weights;
}

int ReachOf(const std::vector<double>& weights) {
  return (static_cast<int>(weights.size()) - kSamplesPerPixelSide) / 2;
}

// Makes a row of pixels of a row of samples. `padded` is working space.
void FilterRow(const std::vector<double>& samples, const std::vector<double>& weights,
               std::vector<double>& padded, std::vector<double>& pixels) {
  const std::size_t reach = static_cast<std::size_t>(ReachOf(weights));
  padded.assign(reach, samples.front());
  padded.insert(padded.end(), samples.begin(), samples.end());
  padded.insert(padded.end(), reach, samples.back());
  for (std::size_t x = 0; x < pixels.size(); ++x) {
    const double* source = padded.data() + x * kSamplesPerPixelSide;
    double sum = 0;
    for (std::size_t i = 0; i < weights.size(); ++i) {
      sum += weights[i] * source[i];
    }
    pixels[x] = sum;
  }
}

// Adds a row to every row of pixels that it has a share in; `sampleRow` may lie outside the
// picture.
void AddToPixelRows(LevelPicture& picture, const std::vector<double>& row, int sampleRow,
                    const std::vector<double>& weights) {
  const int reach = ReachOf(weights);
  const int first = std::max(0, (sampleRow - reach) / kSamplesPerPixelSide);
  const int last = std::min(picture.height - 1, (sampleRow + reach) / kSamplesPerPixelSide);
  for (int y = first; y <= last; ++y) {
    const int index = sampleRow - y * kSamplesPerPixelSide + reach;
    if (index < 0 || index >= static_cast<int>(weights.size())) {
      continue;
    }
    const double weight = weights[static_cast<std::size_t>(index)];
    float* levels = picture.levels.data() + static_cast<std::size_t>(y) * row.size();
    for (std::size_t x = 0; x < row.size(); ++x) {
      levels[x] = static_cast<float>(levels[x] + weight * row[x]);
    }
  }
}

// Normal deviates by the polar method (Marsaglia and Bray, 1964). The distributions of the standard
// library differ from one implementation to another; its generators do not.
class NormalSource {
 public:
  explicit NormalSource(std::uint64_t seed) : generator_(seed) {}

  double Next() {
    if (hasSpare_) {
      hasSpare_ = false;
      return spare_;
    }
    double x = 0;
    double y = 0;
    double square = 0;
    do {
      x = Symmetric();
      y = Symmetric();
      square = x * x + y * y;
    } while (square >= 1 || square == 0);
    const double scale = std::sqrt(-2 * std::log(square) / square);
    spare_ = y * scale;
    hasSpare_ = true;
    return x * scale;
  }

 private:
  // From -1 to 1, in steps of 2^-52.
  double Symmetric() {
    return static_cast<double>(generator_() >> 11) * (1.0 / 4503599627370496.0) - 1;
  }

  std::mt19937_64 generator_;
  double spare_ = 0;
  bool hasSpare_ = false;
};

}  // namespace

LevelPicture FilterSamples(int width, int height, double sigma, const SampleRow& sampleRow) {
  LevelPicture picture;
  picture.width = width;
  picture.height = height;
  picture.levels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0.0f);
  const std::vector<double> weights = PixelWeights(sigma);
  const int reach = ReachOf(weights);
  const int sampleRows = height * kSamplesPerPixelSide;
  std::vector<double> samples(static_cast<std::size_t>(width) * kSamplesPerPixelSide);
  std::vector<double> padded;
  std::vector<double> pixels(static_cast<std::size_t>(width));
  for (int row = -reach; row < sampleRows + reach; ++row) {
    const bool repeatsLast = row >= sampleRows || (row < 0 && row > -reach);
    if (!repeatsLast) {
      sampleRow(std::max(row, 0), samples);
      FilterRow(samples, weights, padded, pixels);
    }
    AddToPixelRows(picture, pixels, row, weights);
  }
  return picture;
}

Picture AddNoiseAndRound(const LevelPicture& picture, double sigma, std::uint64_t seed) {
  Picture result;
  result.width = picture.width;
  result.height = picture.height;
  result.pixels.reserve(picture.levels.size());
  NormalSource noise(seed);
  for (const float level : picture.levels) {
    const double noisy = sigma == 0 ? level : level + sigma * noise.Next();
    result.pixels.push_back(static_cast<std::uint8_t>(std::clamp(noisy + 0.5, 0.0, 255.0)));
  }
  return result;
}

}  // namespace quorvex::tools
