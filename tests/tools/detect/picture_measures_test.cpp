#include "tools/detect/picture_measures.h"

#include <gtest/gtest.h>

#include "tests/support/test_files.h"
#include "tools/render/picture_effects.h"

namespace quorvex::tests {

using namespace tools;

namespace {

LevelPicture FlatLevels(float level) {
  LevelPicture picture;
  picture.width = 120;
  picture.height = 100;
  picture.levels.assign(120 * 100, level);
  return picture;
}

TEST(FindWhite, CountsFrom128) {
  Picture picture = FlatPicture(10, 8, 127);
  EXPECT_EQ(FindWhite(picture).count, 0);
  FillBox(picture, 2, 3, 5, 5, 128);
  const WhitePixels white = FindWhite(picture);
  EXPECT_EQ(white.count, 6);
  EXPECT_EQ(white.left, 2);
  EXPECT_EQ(white.right, 4);
  EXPECT_EQ(white.top, 3);
  EXPECT_EQ(white.bottom, 4);
  EXPECT_EQ(white.sumX, 2 * (2 + 3 + 4));
}

TEST(FindWhite, TakesAPartThatReachesOutOfThePicture) {
  EXPECT_EQ(FindWhite(FlatPicture(10, 8, 255), -5, -5, 3, 2).count, 6);
  EXPECT_EQ(FindWhite(FlatPicture(10, 8, 255), 8, 7, 90, 90).count, 2);
}

TEST(Elongation, IsOneForACrossAndLargeForAStroke) {
  Picture cross = FlatPicture(101, 101, 0);
  FillBox(cross, 10, 49, 91, 52, 255);
  EXPECT_GT(Elongation(FindWhite(cross)), 100);
  FillBox(cross, 49, 10, 52, 91, 255);
  EXPECT_NEAR(Elongation(FindWhite(cross)), 1, 0.01);
}

TEST(BrightestLevel, PassesOverSingleBrightPixels) {
  Picture picture = FlatPicture(100, 100, 60);
  FillBox(picture, 0, 0, 9, 1, 255);
  EXPECT_EQ(BrightestLevel(picture), 60);
  FillBox(picture, 0, 0, 20, 1, 255);
  EXPECT_EQ(BrightestLevel(picture), 255);
}

TEST(NoiseLevel, IsTheSigmaOfTheNoise) {
  EXPECT_EQ(NoiseLevel(FlatPicture(120, 100, 90)), 0);
  for (const double sigma : {2.0, 5.0, 20.0}) {
    EXPECT_NEAR(NoiseLevel(AddNoiseAndRound(FlatLevels(120), sigma, 7)), sigma, 0.1 * sigma);
  }
}

TEST(NoiseLevel, PassesOverShapesAndSlopes) {
  Picture picture = FlatPicture(120, 100, 0);
  for (int y = 0; y < 100; ++y) {
    for (int x = 0; x < 120; ++x) picture.At(x, y) = static_cast<std::uint8_t>(50 + x + y / 2);
  }
  FillBox(picture, 20, 20, 60, 23, 10);
  FillBox(picture, 80, 50, 90, 60, 10);
  EXPECT_LT(NoiseLevel(picture), 0.5);
}

TEST(NoiseLevel, PassesOverWhatIsCutOff) {
  // Half of the noise of a black picture is cut off; beside it stands a clean white one.
  EXPECT_EQ(NoiseLevel(FlatPicture(120, 100, 255)), 0);
  EXPECT_EQ(NoiseLevel(FlatPicture(120, 100, 0)), 0);
  Picture picture = AddNoiseAndRound(FlatLevels(120), 8, 7);
  FillBox(picture, 0, 0, 120, 70, 0);
  EXPECT_NEAR(NoiseLevel(picture), 8, 1);
}

TEST(NoiseLevel, OfATinyPictureIsZero) { EXPECT_EQ(NoiseLevel(FlatPicture(2, 1, 9)), 0); }

}  // namespace
}  // namespace quorvex::tests
