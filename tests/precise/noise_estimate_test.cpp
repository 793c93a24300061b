#include "precise/noise_estimate.h"

#include <gtest/gtest.h>

#include "tests/precise/mark_drawing.h"

namespace quorvex::tests {
namespace {

using precise::EstimateNoise;
using precise::GrayPicture;

TEST(NoiseEstimate, FlatPictureHasTheNoiseOfRounding) {
  EXPECT_DOUBLE_EQ(EstimateNoise(GrayPicture(64, 64, 100)), 0.3);
}

TEST(NoiseEstimate, NormalNoiseIsFoundToAFewPercent) {
  for (const double sigma : {2.0, 5.0, 10.0}) {
    GrayPicture picture(400, 400, 128);
    AddNoise(sigma, 7, picture);
    EXPECT_NEAR(EstimateNoise(picture), sigma, 0.08 * sigma);
  }
}

TEST(NoiseEstimate, GradientAndMarksAreNoNoise) {
  GrayPicture picture(300, 300, 0);
  for (int y = 0; y < 300; ++y) {
    for (int x = 0; x < 300; ++x) {
      picture.Row(y)[x] = static_cast<std::uint8_t>((x + y) / 4 + 60);
    }
  }
  DrawMark({{150, 150}}, picture);
  EXPECT_LT(EstimateNoise(picture), 0.6);
}

TEST(NoiseEstimate, SmallestPicturesAreNotReadBeyond) {
  EXPECT_DOUBLE_EQ(EstimateNoise(GrayPicture(3, 3, 9)), 0.3);
  EXPECT_DOUBLE_EQ(EstimateNoise(GrayPicture(16, 16, 9)), 0.3);
}

}  // namespace
}  // namespace quorvex::tests
