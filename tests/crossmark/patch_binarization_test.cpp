#include "crossmark/patch_binarization.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

#include "crossmark/patch.h"
#include "tests/support/patches.h"

namespace quorvex::tests {
namespace {

constexpr float kWeight = 0.06f;  // as the detection uses it

GrayImage Binarized(const GrayImage& patch, float k = kWeight) {
  GrayImage binary = UniformImage(kPatchSize, kPatchSize, 77);
  SauvolaBinarize(patch.Data(), binary.Data(), k);
  return binary;
}

GrayImage UniformPatch(unsigned char level) { return UniformImage(kPatchSize, kPatchSize, level); }

// Patches of level 100 with one line of 255. Where the line lies within the window, the threshold
// there rises above 100 (to 101.3 for a full window), elsewhere it is 94.
unsigned char BinaryWithColumn(int column, int x, int y) {
  GrayImage patch = UniformPatch(100);
  DrawColumn(patch, column, 0, kPatchSize - 1, 255);
  GrayImage binary = Binarized(patch);
  return PixelAt(binary, x, y);
}

unsigned char BinaryWithRow(int row, int x, int y) {
  GrayImage patch = UniformPatch(100);
  DrawRow(patch, row, 0, kPatchSize - 1, 255);
  GrayImage binary = Binarized(patch);
  return PixelAt(binary, x, y);
}

struct Statistics {
  double mean;
  double deviation;
};

// Of the window around a pixel, its sums counted afresh.
Statistics PlainStatistics(const GrayImage& patch, int x, int y) {
  long long count = 0;
  long long sum = 0;
  long long squares = 0;
  for (int row = std::max(y - 20, 0); row <= std::min(y + 20, 159); ++row) {
    for (int column = std::max(x - 20, 0); column <= std::min(x + 20, 159); ++column) {
      const int level = patch.Data()[row * 160 + column];
      ++count;
      sum += level;
      squares += level * level;
    }
  }
  const double a = static_cast<double>(count);
  const double s = static_cast<double>(sum);
  const double q = static_cast<double>(squares);
  float variance = static_cast<float>((q - s * s / a) / (a - 1.0));
  if (variance < 0.0f) {
    variance = -variance;
  }
  return {s / a, std::sqrt(static_cast<double>(variance))};
}

unsigned char BinarizedPlainly(const GrayImage& patch, int x, int y, float k) {
  const Statistics window = PlainStatistics(patch, x, y);
  const double threshold =
      window.mean * (1.0 + static_cast<double>(k) * (window.deviation / 40.0 - 1.0));
  return threshold > static_cast<double>(patch.Data()[y * 160 + x]) ? 0 : 255;
}

Bytes BinarizedPlainly(const GrayImage& patch, float k) {
  Bytes binary;
  for (int y = 0; y < 160; ++y) {
    for (int x = 0; x < 160; ++x) {
      binary.push_back(BinarizedPlainly(patch, x, y, k));
    }
  }
  return binary;
}

TEST(SauvolaBinarize, UniformPatchComesOutWhite) {
  const Bytes white(kPatchArea, 255);
  for (const int level : {0, 1, 80, 254, 255}) {
    EXPECT_EQ(BytesOf(Binarized(UniformPatch(static_cast<unsigned char>(level)))), white) << level;
  }
}

TEST(SauvolaBinarize, PixelEqualToTheThresholdIsWhite) {
  // Without a weight the threshold is the mean.
  EXPECT_EQ(BytesOf(Binarized(UniformPatch(100), 0.0f)), Bytes(kPatchArea, 255));
}

TEST(SauvolaBinarize, PixelBelowTheThresholdIsBlack) {
  EXPECT_EQ(BytesOf(Binarized(UniformPatch(100), -0.06f)), Bytes(kPatchArea, 0));
}

TEST(SauvolaBinarize, DarkStrokeBecomesBlackOnWhite) {
  GrayImage patch = UniformPatch(200);
  DrawColumn(patch, 80, 0, kPatchSize - 1, 50);
  GrayImage expected = UniformPatch(255);
  DrawColumn(expected, 80, 0, kPatchSize - 1, 0);
  EXPECT_EQ(BytesOf(Binarized(patch)), BytesOf(expected));
}

TEST(SauvolaBinarize, WindowReachesTwentyPixelsToEachSide) {
  EXPECT_EQ(BinaryWithColumn(60, 80, 80), 0);
  EXPECT_EQ(BinaryWithColumn(100, 80, 80), 0);
  EXPECT_EQ(BinaryWithRow(60, 80, 80), 0);
  EXPECT_EQ(BinaryWithRow(100, 80, 80), 0);
  EXPECT_EQ(BinaryWithColumn(59, 80, 80), 255);
  EXPECT_EQ(BinaryWithColumn(101, 80, 80), 255);
  EXPECT_EQ(BinaryWithRow(59, 80, 80), 255);
  EXPECT_EQ(BinaryWithRow(101, 80, 80), 255);
}

TEST(SauvolaBinarize, CornerUsesAWindowOfTwentyOnePixels) {
  EXPECT_EQ(BinaryWithColumn(20, 0, 0), 0);
  EXPECT_EQ(BinaryWithColumn(21, 0, 0), 255);
  EXPECT_EQ(BinaryWithRow(20, 0, 0), 0);
  EXPECT_EQ(BinaryWithRow(21, 0, 0), 255);
  EXPECT_EQ(BinaryWithColumn(139, 159, 159), 0);
  EXPECT_EQ(BinaryWithColumn(138, 159, 159), 255);
  EXPECT_EQ(BinaryWithRow(139, 159, 159), 0);
  EXPECT_EQ(BinaryWithRow(138, 159, 159), 255);
}

TEST(SauvolaBinarize, CornerWindowIsNotPadded) {
  // One pixel of 255 in 441 lifts the corner's threshold from 94.03 to 95.43; the pixels of a
  // padded window would not.
  GrayImage patch = UniformPatch(100);
  PixelAt(patch, 0, 0) = 95;
  GrayImage binary = Binarized(patch);
  EXPECT_EQ(PixelAt(binary, 0, 0), 255);
  PixelAt(patch, 20, 20) = 255;
  binary = Binarized(patch);
  EXPECT_EQ(PixelAt(binary, 0, 0), 0);
}

TEST(SauvolaBinarize, EqualsPlainWindowSums) {
  Bytes everyLevel(256);
  std::iota(everyLevel.begin(), everyLevel.end(), static_cast<unsigned char>(0));
  // The third and fourth lie around the threshold of their own mixture.
  const Bytes levelSets[] = {everyLevel,   {0, 255},   {93, 94, 95, 100, 100, 100},
                             {39, 40, 41}, {254, 255}, {0, 0, 0, 0, 0, 0, 0, 0, 1}};
  unsigned seed = 0;
  for (const Bytes& levels : levelSets) {
    for (const float k : {kWeight, 0.5f}) {
      std::mt19937 random(seed);
      const GrayImage patch = RandomImage(kPatchSize, kPatchSize, levels, random);
      EXPECT_TRUE(BytesOf(Binarized(patch, k)) == BinarizedPlainly(patch, k))
          << "seed " << seed << ", k " << k;
      ++seed;
    }
  }
}

TEST(SauvolaBinarize, VarianceIsKeptInSinglePrecision) {
  // Weights that put the threshold of one pixel as near to its level as a float weight can: the
  // outcome hangs on the last bits of the deviation.
  std::mt19937 random(5);
  GrayImage patch = RandomImage(kPatchSize, kPatchSize, {20, 60, 130, 180, 250}, random);
  for (int n = 0; n < 150; ++n) {
    const int x = static_cast<int>(random() % kPatchSize);
    const int y = static_cast<int>(random() % kPatchSize);
    const Statistics window = PlainStatistics(patch, x, y);
    const double level = static_cast<double>(PixelAt(patch, x, y));
    const float k =
        static_cast<float>((level / window.mean - 1.0) / (window.deviation / 40.0 - 1.0));
    GrayImage binary = Binarized(patch, k);
    EXPECT_EQ(PixelAt(binary, x, y), BinarizedPlainly(patch, x, y, k))
        << "pixel " << x << ' ' << y << ", k " << k;
  }
}

}  // namespace
}  // namespace quorvex::tests
