#include "precise/hessian_peaks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>

#include "tests/precise/mark_drawing.h"

namespace quorvex::tests {
namespace {

using precise::BuildPyramid;
using precise::FindHessianPeaks;
using precise::GrayPicture;
using precise::HessianPeak;

constexpr double kNoise = 0.3;
constexpr std::size_t kNoLimit = 1000;

std::vector<HessianPeak> PeaksAtHalf(const GrayPicture& picture) {
  return FindHessianPeaks(BuildPyramid(picture)[1], kNoise, kNoLimit);
}

TEST(HessianPeaks, MiddleOfAMarkIsOne) {
  GrayPicture picture(120, 120, kBoardLevel);
  DrawMark({{60.5, 52.5}, {10, 100, 190, 280}}, picture);
  int middles = 0;
  for (const HessianPeak& peak : PeaksAtHalf(picture)) {
    middles += peak.x == 30 && peak.y == 26 ? 1 : 0;
  }
  EXPECT_EQ(middles, 1);
}

TEST(HessianPeaks, LightMarkHasNoPeakInItsMiddle) {
  GrayPicture picture(120, 120, 40);
  DrawMark({{60.5, 60.5}, {10, 100, 190, 280}, 30, 4, 200}, picture);
  for (const HessianPeak& peak : PeaksAtHalf(picture)) {
    EXPECT_GT(std::hypot(peak.x - 30, peak.y - 30), 2.5);
  }
}

TEST(HessianPeaks, FlatPictureAndStraightLineHaveNone) {
  GrayPicture picture(120, 120, kBoardLevel);
  EXPECT_TRUE(PeaksAtHalf(picture).empty());
  DrawMark({{60, 60}, {0, 180}, 100}, picture);
  EXPECT_TRUE(PeaksAtHalf(picture).empty());
}

TEST(HessianPeaks, PlateauIsOnePeak) {
  GrayPicture picture(64, 64, kBoardLevel);
  // Two pixels of the level are equally dark.
  for (int y = 30; y < 32; ++y) {
    for (int x = 30; x < 34; ++x) {
      picture.Row(y)[x] = 0;
    }
  }
  EXPECT_EQ(PeaksAtHalf(picture).size(), 1u);
}

TEST(HessianPeaks, OfTooManyTheStrongestStay) {
  GrayPicture picture(200, 100, kBoardLevel);
  DrawMark({{40, 50}, {0, 90, 180, 270}, 20, 4, 120}, picture);
  DrawMark({{100, 50}, {0, 90, 180, 270}, 20, 4, 10}, picture);
  DrawMark({{160, 50}, {0, 90, 180, 270}, 20, 4, 120}, picture);
  const std::vector<HessianPeak> peaks = FindHessianPeaks(BuildPyramid(picture)[1], kNoise, 1);
  ASSERT_EQ(peaks.size(), 1u);
  EXPECT_NEAR(peaks[0].x, 50, 1);
}

TEST(HessianPeaks, NoiseMakesHardlyAny) {
  GrayPicture picture(400, 400, 128);
  AddNoise(8, 3, picture);
  EXPECT_LT(FindHessianPeaks(BuildPyramid(picture)[1], 8, kNoLimit).size(), 20u);
}

TEST(HessianPeaks, SmallestLevelsHaveNone) {
  for (const auto& level : BuildPyramid(GrayPicture(16, 16, 3))) {
    EXPECT_TRUE(FindHessianPeaks(level, kNoise, kNoLimit).empty());
  }
}

}  // namespace
}  // namespace quorvex::tests
