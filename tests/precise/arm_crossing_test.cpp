#include "precise/arm_crossing.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/precise/mark_drawing.h"

namespace quorvex::tests {
namespace {

using precise::BuildPyramid;
using precise::FindArmCrossing;
using precise::FindPolarArms;
using precise::GrayPicture;
using precise::PyramidLevel;

constexpr double kNoise = 1.0;

PyramidLevel LevelWithMark(const Eigen::Vector2d& centre, const std::vector<double>& angles) {
  GrayPicture picture(100, 100, kBoardLevel);
  DrawMark({centre, angles, 30, 3}, picture);
  return BuildPyramid(picture)[0];
}

std::optional<Eigen::Vector2d> CrossingFrom(const PyramidLevel& level,
                                            const Eigen::Vector2d& point) {
  return FindArmCrossing(level, point, FindPolarArms(level, point, kNoise));
}

TEST(ArmCrossing, MovesOntoTheMiddleOfAMark) {
  const Eigen::Vector2d centre(50.3, 49.6);
  const PyramidLevel level = LevelWithMark(centre, {15, 105, 195, 285});
  for (const Eigen::Vector2d& away : {Eigen::Vector2d(0, 0), {1, 0}, {-0.7, 0.7}, {0, -1}}) {
    const auto crossing = CrossingFrom(level, centre + away);
    ASSERT_TRUE(crossing.has_value());
    EXPECT_LT((*crossing - centre).norm(), 0.15);
  }
}

TEST(ArmCrossing, ThreeArmsDo) {
  const Eigen::Vector2d centre(50.3, 49.6);
  const auto crossing = CrossingFrom(LevelWithMark(centre, {15, 105, 195}), {50, 50});
  ASSERT_TRUE(crossing.has_value());
  EXPECT_LT((*crossing - centre).norm(), 0.2);
}

TEST(ArmCrossing, NothingIsFoundWithoutArms) {
  const PyramidLevel level = LevelWithMark({50, 50}, {});
  precise::PolarArms arms = FindPolarArms(LevelWithMark({50, 50}, {0, 90, 180, 270}), {50, 50}, 1);
  ASSERT_EQ(arms.seen, 4);
  EXPECT_FALSE(FindArmCrossing(level, {50, 50}, arms).has_value());
}

}  // namespace
}  // namespace quorvex::tests
