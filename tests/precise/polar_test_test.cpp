#include "precise/polar_test.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

#include "tests/precise/mark_drawing.h"

namespace quorvex::tests {
namespace {

using precise::BuildPyramid;
using precise::FindPolarArms;
using precise::GrayPicture;
using precise::PolarArms;
using precise::PyramidLevel;

constexpr double kNoise = 1.0;
const Eigen::Vector2d kMiddle(50, 50);

PyramidLevel LevelWithArms(const std::vector<double>& angles) {
  GrayPicture picture(100, 100, kBoardLevel);
  DrawMark({kMiddle, angles, 30, 3}, picture);
  return BuildPyramid(picture)[0];
}

// The greatest deviation of an arm from the direction that it should have, in degrees.
double WorstDeviation(const PolarArms& arms, const std::vector<double>& clockwise) {
  double best = 360;
  for (std::size_t turn = 0; turn < 4; ++turn) {
    double worst = 0;
    for (std::size_t k = 0; k < 4; ++k) {
      const double angle = arms.arms[(k + turn) % 4].angle;
      const double cosine =
          Eigen::Vector2d(std::cos(angle), std::sin(angle)).dot(DirectionOf(clockwise[k]));
      worst = std::max(worst, std::acos(std::min(1.0, cosine)) * 180 / 3.14159265358979323846);
    }
    best = std::min(best, worst);
  }
  return best;
}

TEST(PolarTest, FourArmsAreFoundAtAnyTurn) {
  for (double turn = 0; turn < 90; turn += 7) {
    const std::vector<double> angles = {turn, turn + 90, turn + 180, turn + 270};
    const PolarArms arms = FindPolarArms(LevelWithArms(angles), kMiddle, kNoise);
    ASSERT_EQ(arms.seen, 4) << turn;
    EXPECT_LT(WorstDeviation(arms, angles), 3) << turn;
  }
}

TEST(PolarTest, ObliqueStrokesAreFoundDownToThirtyFiveDegrees) {
  for (const double crossing : {75.0, 60.0, 45.0, 35.0}) {
    const std::vector<double> angles = {20, 20 + crossing, 200, 200 + crossing};
    const PolarArms arms = FindPolarArms(LevelWithArms(angles), kMiddle, kNoise);
    ASSERT_EQ(arms.seen, 4) << crossing;
    EXPECT_LT(WorstDeviation(arms, angles), 5) << crossing;
  }
}

TEST(PolarTest, HiddenArmIsOppositeToTheOtherOne) {
  const PolarArms arms = FindPolarArms(LevelWithArms({0, 90, 180}), kMiddle, kNoise);
  EXPECT_EQ(arms.seen, 3);
  EXPECT_LT(WorstDeviation(arms, {0, 90, 180, 270}), 4);
  for (const auto& arm : arms.arms) {
    EXPECT_EQ(arm.isSeen, std::sin(arm.angle) > -0.5);
  }
}

TEST(PolarTest, CornerHasOneArmOfEitherStroke) {
  EXPECT_EQ(FindPolarArms(LevelWithArms({0, 90}), kMiddle, kNoise).seen, 2);
}

TEST(PolarTest, LineAndLonelyArmAndNothingHaveNoCrossing) {
  EXPECT_EQ(FindPolarArms(LevelWithArms({30, 210}), kMiddle, kNoise).seen, 0);
  EXPECT_EQ(FindPolarArms(LevelWithArms({30}), kMiddle, kNoise).seen, 0);
  EXPECT_EQ(FindPolarArms(LevelWithArms({}), kMiddle, kNoise).seen, 0);
}

TEST(PolarTest, ChessboardCornerHasNone) {
  GrayPicture picture(100, 100, kBoardLevel);
  for (int y = 0; y < 100; ++y) {
    for (int x = 0; x < 100; ++x) {
      picture.Row(y)[x] = (x < 50) == (y < 50) ? 40 : kBoardLevel;
    }
  }
  EXPECT_EQ(FindPolarArms(BuildPyramid(picture)[0], kMiddle, kNoise).seen, 0);
}

TEST(PolarTest, FrameHidesWhatLiesBeyondIt) {
  GrayPicture picture(100, 100, kBoardLevel);
  DrawMark({{4, 4}, {0, 90, 180, 270}, 30, 3}, picture);
  const PolarArms arms = FindPolarArms(BuildPyramid(picture)[0], {4, 4}, kNoise);
  EXPECT_EQ(arms.seen, 2);
}

}  // namespace
}  // namespace quorvex::tests
