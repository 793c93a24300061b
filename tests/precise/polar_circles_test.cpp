#include "precise/polar_circles.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "tests/precise/mark_drawing.h"

namespace quorvex::tests {
namespace {

using precise::BuildPyramid;
using precise::GrayPicture;
using precise::kAngles;
using precise::kResponseUnit;
using precise::MayHaveThreeArms;
using precise::MeasureResponses;
using precise::PolarResponses;
using precise::PyramidLevel;

constexpr double kLeast = 1.2;  // grey levels
const Eigen::Vector2d kMiddle(50, 50);

PyramidLevel LevelWithArms(const std::vector<double>& angles) {
  GrayPicture picture(100, 100, kBoardLevel);
  DrawMark({kMiddle, angles, 30, 3}, picture);
  return BuildPyramid(picture)[0];
}

TEST(PolarCircles, ResponseIsTheDepthOfAnArm) {
  const PolarResponses responses = MeasureResponses(LevelWithArms({0, 90, 180, 270}), kMiddle);
  for (const std::size_t k : {0u, 12u, 24u, 36u}) {
    EXPECT_NEAR(responses.sums[k] / static_cast<double>(kResponseUnit), kBoardLevel - 40, 12);
    EXPECT_TRUE(responses.isDark[k]);
  }
  for (const std::size_t k : {6u, 18u, 30u, 42u}) {
    EXPECT_LE(responses.sums[k], 0);
    EXPECT_FALSE(responses.isDark[k]);
  }
}

TEST(PolarCircles, DirectionWhoseSideIsDarkHasNoResponse) {
  // Everything below row 50 is dark.
  GrayPicture picture(100, 100, kBoardLevel);
  for (int y = 50; y < 100; ++y) {
    for (int x = 0; x < 100; ++x) {
      picture.Row(y)[x] = 40;
    }
  }
  const PolarResponses responses = MeasureResponses(BuildPyramid(picture)[0], kMiddle);
  for (std::size_t k = 0; k < kAngles; ++k) {
    EXPECT_FALSE(responses.isDark[k]);
  }
}

TEST(PolarCircles, DirectionsBeyondTheFrameHaveNone) {
  GrayPicture picture(100, 100, kBoardLevel);
  DrawMark({{8, 50}, {0, 90, 180, 270}, 30, 3}, picture);
  const PolarResponses responses = MeasureResponses(BuildPyramid(picture)[0], {8, 50});
  EXPECT_GT(responses.sums[0], 0);
  EXPECT_EQ(responses.sums[24], 0);
  EXPECT_FALSE(responses.isDark[24]);
}

TEST(PolarCircles, QuickLookPassesMarksAndStopsLines) {
  EXPECT_TRUE(MayHaveThreeArms(LevelWithArms({10, 100, 190, 280}), kMiddle, kLeast));
  EXPECT_TRUE(MayHaveThreeArms(LevelWithArms({10, 100, 190}), kMiddle, kLeast));
  EXPECT_TRUE(MayHaveThreeArms(LevelWithArms({10, 40, 190, 220}), kMiddle, kLeast));
  EXPECT_FALSE(MayHaveThreeArms(LevelWithArms({10, 190}), kMiddle, kLeast));
  EXPECT_FALSE(MayHaveThreeArms(LevelWithArms({}), kMiddle, kLeast));
}

}  // namespace
}  // namespace quorvex::tests
