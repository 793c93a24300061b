#include "benchmarks/precision/scene_pose.h"

#include <gtest/gtest.h>

namespace quorvex::tests {

using namespace benchmarks;

namespace {

TEST(ScenePose, ReachesTheAngleThatIsAskedFor) {
  for (const double angle : {35.0, 61.0, 78.0}) {
    for (const double tilt : {0.0, 22.0, 50.0}) {
      SceneRandom random(3);
      Scene scene = StandardScene(random);
      scene.target.tiltX = tilt;
      PlaceWithinAngle(angle, scene);
      EXPECT_NEAR(LargestAngle(scene.target), angle, 1e-6);
    }
  }
}

TEST(ScenePose, PitchDecidesDistanceAndCount) {
  SceneRandom random(1);
  Scene scene = StandardScene(random);
  PlaceAtPitch(150, scene);
  EXPECT_NEAR(PitchOnAxis(scene.target), 150, 1e-9);
  EXPECT_EQ(scene.target.rows, 13);
  PlaceAtPitch(330, scene);
  EXPECT_EQ(scene.target.rows, 7);
  EXPECT_LT(LargestAngle(scene.target), 65);
  SetStroke(8, scene);
  EXPECT_NEAR(scene.target.strokeWidth * 330 / scene.target.pitch, 8, 1e-9);
}

TEST(ScenePose, LeavesOutAboutAsManyAsAsked) {
  SceneRandom random(1);
  Scene scene = StandardScene(random);
  LeaveOut(0.3, random, scene);
  EXPECT_GT(scene.target.missing.size(), 30u);
  EXPECT_LT(scene.target.missing.size(), 72u);
}

TEST(SceneRandom, StaysWithinItsBounds) {
  SceneRandom random(9);
  bool isLow = false;
  bool isHigh = false;
  for (int i = 0; i < 1000; ++i) {
    const double value = random.Between(-2, 3);
    EXPECT_GE(value, -2);
    EXPECT_LT(value, 3);
    const int whole = random.Whole(1, 3);
    EXPECT_GE(whole, 1);
    EXPECT_LE(whole, 3);
    isLow = isLow || whole == 1;
    isHigh = isHigh || whole == 3;
  }
  EXPECT_TRUE(isLow && isHigh);
}

}  // namespace
}  // namespace quorvex::tests
