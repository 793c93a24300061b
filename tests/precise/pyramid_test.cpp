#include "precise/pyramid.h"

#include <gtest/gtest.h>

#include "tests/precise/mark_drawing.h"

namespace quorvex::tests {
namespace {

using precise::BuildPyramid;
using precise::GrayPicture;
using precise::kFraction;
using precise::kLevelUnit;
using precise::Pyramid;
using precise::PyramidLevel;
using precise::ToFixed;

TEST(Pyramid, FlatPictureStaysAsItIsAtEverySize) {
  for (const int grey : {0, 1, 128, 255}) {
    const Pyramid pyramid = BuildPyramid(GrayPicture(37, 22, static_cast<std::uint8_t>(grey)));
    for (const PyramidLevel& level : pyramid) {
      for (const std::uint16_t value : level.values) {
        ASSERT_EQ(value, grey * kLevelUnit) << level.index;
      }
    }
  }
}

TEST(Pyramid, SizesAreHalvedAndCutToWholePixels) {
  const Pyramid pyramid = BuildPyramid(GrayPicture(37, 22, 0));
  EXPECT_EQ(pyramid[0].width, 37);
  EXPECT_EQ(pyramid[1].width, 18);
  EXPECT_EQ(pyramid[2].width, 9);
  EXPECT_EQ(pyramid[0].height, 22);
  EXPECT_EQ(pyramid[1].height, 11);
  EXPECT_EQ(pyramid[2].height, 5);
}

// The centroid of a spot, brought back to the picture, is where the spot is.
TEST(Pyramid, PlacesOfALevelAreThoseOfThePicture) {
  GrayPicture picture(64, 64, 0);
  for (int y = 28; y < 36; ++y) {
    for (int x = 20; x < 28; ++x) {
      picture.Row(y)[x] = 200;
    }
  }
  for (const PyramidLevel& level : BuildPyramid(picture)) {
    Eigen::Vector2d moment = Eigen::Vector2d::Zero();
    double mass = 0;
    for (int y = 0; y < level.height; ++y) {
      for (int x = 0; x < level.width; ++x) {
        moment += level.Row(y)[x] * Eigen::Vector2d(x, y);
        mass += level.Row(y)[x];
      }
    }
    const Eigen::Vector2d centre = level.ToPicture(moment / mass);
    EXPECT_NEAR(centre.x(), 23.5, 0.01) << level.index;
    EXPECT_NEAR(centre.y(), 31.5, 0.01) << level.index;
    EXPECT_LT((level.FromPicture(centre) - moment / mass).norm(), 1e-12);
  }
}

TEST(Pyramid, SamplesAreInterpolatedBetweenFourPixels) {
  PyramidLevel level;
  level.width = 2;
  level.height = 2;
  level.values = {0, 100, 200, 300};
  EXPECT_EQ(level.SampleFixed(0, 0), 0);
  EXPECT_EQ(level.SampleFixed(kFraction / 2, 0), 50);
  EXPECT_EQ(level.SampleFixed(0, kFraction / 2), 100);
  EXPECT_EQ(level.SampleFixed(kFraction / 2, kFraction / 2), 150);
}

TEST(Pyramid, HoldsWhatCanBeInterpolatedAndNoMore) {
  PyramidLevel level;
  level.width = 10;
  level.height = 5;
  EXPECT_TRUE(level.HoldsFixed(0, 0));
  EXPECT_TRUE(level.HoldsFixed(9 * kFraction - 1, 4 * kFraction - 1));
  EXPECT_FALSE(level.HoldsFixed(9 * kFraction, 0));
  EXPECT_FALSE(level.HoldsFixed(0, 4 * kFraction));
  EXPECT_FALSE(level.HoldsFixed(-1, 0));
}

TEST(Pyramid, FixedPositionsAreRoundedAndKeptInRange) {
  EXPECT_EQ(ToFixed(1.5), kFraction * 3 / 2);
  EXPECT_EQ(ToFixed(-0.25), -kFraction / 4);
  EXPECT_EQ(ToFixed(1e300), ToFixed(1e6));
  EXPECT_EQ(ToFixed(-1e300), ToFixed(-1e6));
}

}  // namespace
}  // namespace quorvex::tests
