#include "benchmarks/precision/scene_renderer.h"

#include <gtest/gtest.h>

#include <cmath>

#include "benchmarks/precision/scene_truth.h"
#include "tools/render/render_target.h"

namespace quorvex::tests {

using namespace benchmarks;

namespace {

// One upright mark about the middle; 1 mm is a pixel.
Scene OneMark(double x, double y, double stroke, double blur) {
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
  target.strokeWidth = stroke;
  target.margin = 300;
  target.boardLevel = 200;
  target.markLevel = 20;
  target.backgroundLevel = 90;
  target.blurSigma = blur;
  return scene;
}

double Normal(double x) { return 0.5 * std::erfc(-x / std::sqrt(2.0)); }

// Mean over a pixel of a blurred stroke's dark, by fine sums.
double Profile(double offset, double stroke, double blur) {
  constexpr int kSteps = 2000;
  double sum = 0;
  for (int i = 0; i < kSteps; ++i) {
    const double x = offset + (i + 0.5) / kSteps - 0.5;
    sum += blur == 0 ? (std::abs(x) <= stroke / 2 ? 1.0 : 0.0)
                     : Normal((x + stroke / 2) / blur) - Normal((x - stroke / 2) / blur);
  }
  return sum / kSteps;
}

TEST(SceneRenderer, StrokeHasTheProfileOfBlurAndPixel) {
  for (const double blur : {0.0, 0.5, 0.8, 1.0, 2.5}) {
    const Scene scene = OneMark(50.37, 49.81, 3.3, blur);
    const tools::LevelPicture levels = RenderLevels(scene);
    for (int x = 40; x <= 60; ++x) {
      const double seen =
          static_cast<double>(levels.levels[static_cast<std::size_t>(25 * 101 + x)]);
      EXPECT_NEAR(seen, 200 - 180 * Profile(x - 50.37, 3.3, blur), 0.25) << x << " " << blur;
    }
  }
}

TEST(SceneRenderer, StrokesAreWhereTheTruthSays) {
  for (const double place : {50.0, 50.1, 50.25, 50.4, 50.5, 50.77}) {
    const Scene scene = OneMark(place, 50, 4, 0.5);
    const std::vector<SceneMark> marks = TrueMarks(scene);
    ASSERT_EQ(marks.size(), 1u);
    EXPECT_NEAR(marks[0].x, place, 1e-9);
    const tools::LevelPicture levels = RenderLevels(scene);
    double weight = 0;
    double moment = 0;
    for (int x = 40; x <= 60; ++x) {
      const double dark =
          200 - static_cast<double>(levels.levels[static_cast<std::size_t>(25 * 101 + x)]);
      weight += dark;
      moment += dark * x;
    }
    EXPECT_NEAR(moment / weight, place, 1e-4);
  }
}

Scene SmallFisheye() {
  Scene scene;
  tools::RenderSettings& target = scene.target;
  target.width = 300;
  target.height = 260;
  target.focalLength = 110;
  target.distance = 100;
  target.tiltX = 12;
  target.tiltY = -7;
  target.rotation = 20;
  target.rows = 4;
  target.columns = 5;
  target.pitch = 40;
  target.armLength = 17;
  target.strokeWidth = 3;
  target.margin = 30;
  target.boardLevel = 200;
  target.markLevel = 20;
  target.backgroundLevel = 90;
  target.blurSigma = 1;
  target.missing = {{1, 2}};
  target.gradientX = 0.2;
  return scene;
}

// The command's renderer takes 16 samples a pixel, so that edges along pixel rows may be off.
TEST(SceneRenderer, AgreesWithTheCommandsRenderer) {
  for (const tools::Pattern pattern : {tools::Pattern::kCrosses, tools::Pattern::kChessboard}) {
    Scene scene = SmallFisheye();
    scene.target.pattern = pattern;
    const RenderedScene fine = RenderScene(scene);
    const tools::RenderedTarget plain = tools::RenderTarget(scene.target);
    int largest = 0;
    for (std::size_t i = 0; i < fine.picture.pixels.size(); ++i) {
      largest = std::max(largest, std::abs(fine.picture.pixels[i] - plain.picture.pixels[i]));
    }
    EXPECT_LE(largest, 5);
    ASSERT_EQ(fine.marks.size(), pattern == tools::Pattern::kCrosses ? 19u : 20u);
    EXPECT_DOUBLE_EQ(fine.marks[3].x, plain.marks[3].x);
  }
}

TEST(SceneRenderer, ThingsBeforeTheBoardHideIt) {
  Scene scene = SmallFisheye();
  scene.target.gradientX = 0;
  scene.discs.push_back({150, 130, 20, 77});
  scene.bands.push_back({0, 40, 0, 20, 55});
  const tools::Picture picture = RenderScene(scene).picture;
  EXPECT_EQ(picture.At(150, 130), 77);
  EXPECT_EQ(picture.At(140, 120), 77);
  EXPECT_EQ(picture.At(10, 40), 55);
  EXPECT_EQ(picture.At(290, 45), 55);
}

}  // namespace
}  // namespace quorvex::tests
