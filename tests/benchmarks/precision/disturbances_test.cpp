#include "benchmarks/precision/disturbances.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>

namespace quorvex::tests {

using namespace benchmarks;

namespace {

constexpr int kSide = 120;

tools::LevelPicture Even(float level) {
  tools::LevelPicture picture;
  picture.width = picture.height = kSide;
  picture.levels.assign(kSide * kSide, level);
  return picture;
}

float At(const tools::LevelPicture& picture, int x, int y) {
  return picture.levels[static_cast<std::size_t>(y * kSide + x)];
}

TEST(Disturbances, NoneChangesNothing) {
  tools::LevelPicture picture = Even(77);
  Disturb(picture, {}, 1);
  EXPECT_EQ(picture.levels, Even(77).levels);
}

TEST(Disturbances, MotionKeepsTheMiddleOfASpot) {
  tools::LevelPicture picture = Even(0);
  for (int y = 55; y <= 65; ++y) {
    for (int x = 55; x <= 65; ++x) {
      picture.levels[static_cast<std::size_t>(y * kSide + x)] =
          static_cast<float>(200 * std::exp(-0.25 * ((x - 60) * (x - 60) + (y - 60) * (y - 60))));
    }
  }
  Disturbance motion;
  motion.motionLength = 9;
  motion.motionAngle = 0.4;
  Disturb(picture, motion, 1);
  double weight = 0;
  double sumX = 0;
  double sumY = 0;
  double squares = 0;
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      const double level = static_cast<double>(At(picture, x, y));
      weight += level;
      sumX += level * x;
      sumY += level * y;
      squares += level * ((x - 60) * (x - 60) + (y - 60) * (y - 60));
    }
  }
  EXPECT_NEAR(sumX / weight, 60, 1e-3);
  EXPECT_NEAR(sumY / weight, 60, 1e-3);
  EXPECT_NEAR(squares / weight, 4 + 9 * 9 / 12.0, 0.1);  // the spot's own and the motion's
}

TEST(Disturbances, ShadowDarkensOneSide) {
  tools::LevelPicture picture = Even(200);
  Disturbance shadow;
  shadow.shadowFactor = 0.45;
  shadow.shadowX = shadow.shadowY = 60;
  Disturb(picture, shadow, 1);
  EXPECT_NEAR(At(picture, 10, 80), 200, 1e-3);
  EXPECT_NEAR(At(picture, 100, 40), 90, 1e-3);
  EXPECT_NEAR(At(picture, 50, 60), 145, 1e-3);
}

TEST(Disturbances, BlotchesHaveTheirSpreadAndSize) {
  tools::LevelPicture picture = Even(100);
  Disturbance blotches;
  blotches.blotchSigma = 10;
  blotches.blotchSize = 8;
  Disturb(picture, blotches, 5);
  double squares = 0;
  double neighbours = 0;
  double far = 0;
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x + 30 < kSide; ++x) {
      const double level = static_cast<double>(At(picture, x, y)) - 100;
      squares += level * level;
      neighbours += level * (static_cast<double>(At(picture, x + 4, y)) - 100);
      far += level * (static_cast<double>(At(picture, x + 30, y)) - 100);
    }
  }
  EXPECT_NEAR(std::sqrt(squares / (kSide * (kSide - 30))), 10, 3);
  EXPECT_GT(neighbours / squares, 0.6);
  EXPECT_LT(far / squares, 0.4);
}

TEST(Disturbances, MoireIsAWave) {
  tools::LevelPicture picture = Even(100);
  Disturbance moire;
  moire.moireAmplitude = 12;
  moire.moirePeriod = 8;
  Disturb(picture, moire, 1);
  EXPECT_NEAR(At(picture, 2, 7), 112, 1e-3);
  EXPECT_NEAR(At(picture, 6, 90), 88, 1e-3);
}

TEST(Disturbances, GainClipsAndGammaBrightens) {
  Disturbance change;
  change.gain = 1.5;
  change.offset = -40;
  tools::LevelPicture bright = Even(200);
  Disturb(bright, change, 1);
  EXPECT_EQ(At(bright, 5, 5), 255);
  tools::LevelPicture dark = Even(20);
  Disturb(dark, change, 1);
  EXPECT_EQ(At(dark, 5, 5), 0);
  Disturbance gamma;
  gamma.gamma = 2.2;
  tools::LevelPicture middle = Even(100);
  Disturb(middle, gamma, 1);
  EXPECT_NEAR(At(middle, 5, 5), 255 * std::pow(100 / 255.0, 1 / 2.2), 1e-3);
}

TEST(Disturbances, GradientGrowsToTheRight) {
  tools::LevelPicture picture = Even(100);
  tools::RenderSettings target;
  target.gradientX = 0.3;
  ApplyGradient(picture, target);
  EXPECT_NEAR(At(picture, 0, 3), 70, 1e-3);
  EXPECT_NEAR(At(picture, kSide - 1, 3), 130, 1e-3);
}

}  // namespace
}  // namespace quorvex::tests
