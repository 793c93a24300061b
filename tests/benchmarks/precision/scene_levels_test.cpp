#include "benchmarks/precision/scene_levels.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quorvex::tests {

using namespace benchmarks;

namespace {

// The part of a square cell on the positive side of an edge, by counting.
double CountedCoverage(double gradientX, double gradientY, double cell, double distance) {
  constexpr int kSide = 2000;
  int count = 0;
  for (int i = 0; i < kSide; ++i) {
    const double x = ((i + 0.5) / kSide - 0.5) * cell;
    for (int j = 0; j < kSide; ++j) {
      const double y = ((j + 0.5) / kSide - 0.5) * cell;
      count += distance + gradientX * x + gradientY * y > 0 ? 1 : 0;
    }
  }
  return static_cast<double>(count) / (kSide * kSide);
}

TEST(EdgeShape, CoversTheExactPartOfACell) {
  constexpr double kCell = 0.125;
  for (const double angle : {0.0, 0.3, 0.785398, 1.2, 1.570796, 2.5, -0.7}) {
    const double gradientX = 3 * std::cos(angle);
    const double gradientY = 3 * std::sin(angle);
    const EdgeShape shape(gradientX, gradientY, kCell);
    for (const double distance : {-0.3, -0.2, -0.1, -0.01, 0.0, 0.05, 0.15, 0.25, 0.4}) {
      EXPECT_NEAR(shape.Coverage(distance), CountedCoverage(gradientX, gradientY, kCell, distance),
                  1e-3)
          << angle << " " << distance;
    }
  }
}

TEST(SceneLevels, PixelsOfOneLevelHaveNoEdge) {
  Scene scene;
  tools::RenderSettings& target = scene.target;
  target.width = target.height = 120;
  target.model = tools::CameraModel::kEquidistant;
  target.focalLength = 60;
  target.distance = 40;
  target.tiltX = 20;
  target.rotation = 100;
  target.rows = target.columns = 5;
  target.pitch = 10;
  target.armLength = 4;
  target.strokeWidth = 1;
  target.margin = 7;
  target.boardLevel = 200;
  target.markLevel = 10;
  target.backgroundLevel = 90;
  target.missing = {{1, 2}};
  scene.discs.push_back({50, 70, 12, 130});
  scene.bands.push_back({60, 20, 0.3, 9, 160});
  for (const tools::Pattern pattern : {tools::Pattern::kCrosses, tools::Pattern::kChessboard}) {
    target.pattern = pattern;
    const SceneLevels levels(scene, 3);
    int uniformCount = 0;
    for (int y = -3; y < 123; ++y) {
      std::vector<std::optional<float>> uniform(126);
      levels.FindUniform(-3, y, uniform);
      for (int x = -3; x < 123; ++x) {
        const std::optional<float> level = uniform[static_cast<std::size_t>(x + 3)];
        uniformCount += level ? 1 : 0;
        for (int cellRow = 0; level && cellRow < 4; ++cellRow) {
          float cells[4];
          levels.SampleCells(x, y, cellRow, 4, cells);
          for (const float cell : cells) {
            ASSERT_FLOAT_EQ(cell, *level) << x << ", " << y;
          }
        }
      }
    }
    EXPECT_GT(uniformCount, 126 * 126 / 2);
  }
}

}  // namespace
}  // namespace quorvex::tests
