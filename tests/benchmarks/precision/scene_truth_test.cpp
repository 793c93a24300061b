#include "benchmarks/precision/scene_truth.h"

#include <gtest/gtest.h>

namespace quorvex::tests {

using namespace benchmarks;

namespace {

// One upright mark with arms of 40 pixels; 1 mm is a pixel.
Scene OneMark(double x, double y) {
  Scene scene;
  tools::RenderSettings& target = scene.target;
  target.width = target.height = 101;
  target.model = tools::CameraModel::kPinhole;
  target.focalLength = 1000;
  target.distance = 1000;
  target.shiftX = x - 50;
  target.shiftY = y - 50;
  target.rows = target.columns = 1;
  target.pitch = 200;
  target.armLength = 40;
  target.strokeWidth = 4;
  target.margin = 300;
  return scene;
}

bool IsVisible(const Scene& scene) { return TrueMarks(scene)[0].isVisible; }

TEST(SceneTruth, MarksAreVisibleFourPixelsInsideTheFrame) {
  EXPECT_TRUE(IsVisible(OneMark(50, 50)));
  EXPECT_FALSE(IsVisible(OneMark(3, 50)));
  EXPECT_TRUE(IsVisible(OneMark(4, 50)));
  EXPECT_TRUE(IsVisible(OneMark(50, 96)));
  EXPECT_FALSE(IsVisible(OneMark(50, 98)));
}

TEST(SceneTruth, ThingsBeforeTheCentreHideAMark) {
  Scene scene = OneMark(50, 50);
  scene.discs.push_back({60, 60, 11, 10});
  EXPECT_FALSE(IsVisible(scene));
  scene.discs[0].radius = 6;
  EXPECT_TRUE(IsVisible(scene));
}

TEST(SceneTruth, OneArmOfEachStrokeMustBeFree) {
  Scene scene = OneMark(50, 50);
  scene.discs.push_back({62, 50, 6, 10});  // on the right arm
  EXPECT_TRUE(IsVisible(scene));
  scene.discs.push_back({38, 50, 6, 10});  // on the left one, too
  EXPECT_FALSE(IsVisible(scene));
  scene.discs[1].x = 15;  // beyond half the arm
  EXPECT_TRUE(IsVisible(scene));
}

TEST(SceneTruth, BandsHideWhatTheyTouch) {
  Scene scene = OneMark(50, 50);
  scene.bands.push_back({0, 57, 0, 8, 10});  // to 53, the stroke and a pixel to 53
  EXPECT_FALSE(IsVisible(scene));
  scene.bands[0].y = 59;
  EXPECT_TRUE(IsVisible(scene));
}

TEST(SceneTruth, BlurWidensWhatStandsBeforeTheBoard) {
  Scene scene = OneMark(50, 50);
  scene.discs.push_back({60, 60, 9, 10});
  EXPECT_TRUE(IsVisible(scene));
  scene.target.blurSigma = 1;
  EXPECT_FALSE(IsVisible(scene));
}

TEST(SceneTruth, MissingMarksAreNotOfThePicture) {
  Scene scene = OneMark(50, 50);
  scene.target.missing = {{0, 0}};
  EXPECT_TRUE(TrueMarks(scene).empty());
  scene.target.pattern = tools::Pattern::kChessboard;
  EXPECT_EQ(TrueMarks(scene).size(), 1u);
}

}  // namespace
}  // namespace quorvex::tests
