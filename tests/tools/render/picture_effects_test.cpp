#include "tools/render/picture_effects.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(Noise, HasTheSigmaThatWasAskedFor) {
  LevelPicture levels{500, 400, std::vector<float>(200000, 100)};
  const Picture picture = AddNoiseAndRound(levels, 5, 42);
  double sum = 0;
  double squares = 0;
  for (const std::uint8_t pixel : picture.pixels) {
    sum += pixel - 100.0;
    squares += (pixel - 100.0) * (pixel - 100.0);
  }
  EXPECT_NEAR(sum / 200000, 0, 0.05);
  EXPECT_NEAR(squares / 200000, 25 + 1 / 12.0, 0.4);  // rounding adds a twelfth
}

TEST(FilterSamples, KeepsTheSumAndHasTheSigmaThatWasAskedFor) {
  const LevelPicture picture =
      FilterSamples(41, 41, 1.5, [](int row, std::vector<double>& samples) {
        std::fill(samples.begin(), samples.end(), 0.0);
        if (row / 4 == 20) {  // one bright pixel
          std::fill(samples.begin() + 80, samples.begin() + 84, 1000.0);
        }
      });
  double sum = 0;
  double spreadX = 0;
  double spreadY = 0;
  for (int y = 0; y < 41; ++y) {
    for (int x = 0; x < 41; ++x) {
      const double level = picture.levels[static_cast<std::size_t>(y * 41 + x)];
      sum += level;
      spreadX += level * (x - 20) * (x - 20);
      spreadY += level * (y - 20) * (y - 20);
    }
  }
  EXPECT_NEAR(sum, 1000, 1e-2);
  const double pixelSpread = 2 * (16 - 1) / (12.0 * 16);  // of the four samples, twice
  EXPECT_NEAR(spreadX / sum, 2.25 + pixelSpread, 0.01);
  EXPECT_NEAR(spreadY / sum, 2.25 + pixelSpread, 0.01);
}

TEST(FilterSamples, LeavesAnEvenPictureEvenUpToItsBorders) {
  for (const double sigma : {0.0, 0.05, 0.8, 3.0}) {
    const LevelPicture picture = FilterSamples(5, 4, sigma, [](int, std::vector<double>& samples) {
      std::fill(samples.begin(), samples.end(), 77.0);
    });
    for (const float level : picture.levels) {
      EXPECT_NEAR(level, 77, 1e-4) << sigma;
    }
  }
}

TEST(FilterSamples, WithoutBlurAPixelIsTheMeanOfItsOwnSamples) {
  const LevelPicture picture = FilterSamples(4, 4, 0, [](int row, std::vector<double>& samples) {
    for (std::size_t i = 0; i < samples.size(); ++i) {
      samples[i] = row * 10 + static_cast<double>(i);
    }
  });
  EXPECT_FLOAT_EQ(picture.levels[0], 15 + 1.5f);
  EXPECT_FLOAT_EQ(picture.levels[15], 135 + 13.5f);
}

}  // namespace
}  // namespace quorvex::tests
