#include "precise/arm_trace.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/precise/mark_drawing.h"

namespace quorvex::tests {
namespace {

using precise::ArmStart;
using precise::BuildPyramid;
using precise::GrayPicture;
using precise::MarkArm;
using precise::TraceArm;

constexpr double kSpacing = 2;  // px
constexpr double kNoise = 1;

MarkArm TraceFrom(const GrayPicture& picture, const Eigen::Vector2d& centre, double degrees,
                  double noise = kNoise) {
  const ArmStart start{centre, DirectionOf(degrees), 8, 22};
  return TraceArm(BuildPyramid(picture)[0], start, kSpacing, noise);
}

TEST(ArmTrace, EndsWhereTheArmEnds) {
  for (const double length : {16.0, 40.0, 90.0}) {
    GrayPicture picture(300, 300, kBoardLevel);
    DrawMark({{150, 150}, {20, 110, 200, 290}, length}, picture);
    const MarkArm arm = TraceFrom(picture, {150, 150}, 20);
    ASSERT_TRUE(arm.isSeen);
    EXPECT_NEAR(arm.length, length, 2);
    EXPECT_GT(arm.direction.dot(DirectionOf(20)), std::cos(0.02));
    EXPECT_NEAR(arm.contrast, kBoardLevel - 40, 16);
  }
}

TEST(ArmTrace, StartThatIsSomeDegreesOffIsCorrected) {
  GrayPicture picture(300, 300, kBoardLevel);
  DrawMark({{150, 150}, {20, 110, 200, 290}, 90}, picture);
  const MarkArm arm = TraceFrom(picture, {150, 150}, 25);
  EXPECT_NEAR(arm.length, 90, 3);
  EXPECT_GT(arm.direction.dot(DirectionOf(20)), std::cos(0.02));
}

TEST(ArmTrace, BowIsFollowed) {
  // A circle of radius 300 through (150, 50), downwards.
  GrayPicture picture(300, 300, kBoardLevel);
  for (double angle = 0; angle < 0.5; angle += 0.002) {
    DrawMark({{150 - 300 * (1 - std::cos(angle)), 50 + 300 * std::sin(angle)}, {0}, 1, 2}, picture);
  }
  const MarkArm arm = TraceFrom(picture, {150, 50}, 90);
  // To the end of the stroke, and the chord of half a radian.
  EXPECT_NEAR(arm.length, 2 * 300 * std::sin(0.25), 4);
  EXPECT_GT(arm.direction.dot(DirectionOf(90 + 14.3)), std::cos(0.03));
}

TEST(ArmTrace, EndsWhereAnotherStrokeLiesAcross) {
  GrayPicture picture(300, 300, kBoardLevel);
  DrawMark({{50, 150}, {0, 90, 180, 270}, 240}, picture);
  DrawMark({{130, 150}, {90, 270}, 100}, picture);
  const MarkArm arm = TraceFrom(picture, {50, 150}, 0);
  EXPECT_NEAR(arm.length, 78, 5);
  EXPECT_GT(arm.palest, 0.9);
}

TEST(ArmTrace, GapThatIsTooShortToEndANoisyArmShowsAsPale) {
  GrayPicture picture(300, 300, kBoardLevel);
  DrawMark({{50, 150}, {0}, 60, 4, 120}, picture);
  DrawMark({{115, 150}, {0}, 80, 4, 120}, picture);
  // Noise for which three pale cuts are asked.
  const MarkArm arm = TraceFrom(picture, {50, 150}, 0, 40);
  EXPECT_GT(arm.length, 100);
  EXPECT_LT(arm.palest, 0.6);
}

TEST(ArmTrace, NoArmIsFollowedForever) {
  GrayPicture picture(600, 40, kBoardLevel);
  DrawMark({{20, 20}, {0}, 570}, picture);
  EXPECT_LE(TraceFrom(picture, {20, 20}, 0).length, 171);
}

TEST(ArmTrace, NothingIsSeenOnAnEmptyBoard) {
  EXPECT_FALSE(TraceFrom(GrayPicture(100, 100, kBoardLevel), {50, 50}, 0).isSeen);
}

}  // namespace
}  // namespace quorvex::tests
