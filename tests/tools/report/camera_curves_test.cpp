#include "tools/report/camera_curves.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quorvex::tests {

using namespace tools;

namespace {

// Looks straight at the board from ten pitches away; the mark of row 0 and column 0 is on the axis.
precise::CameraFacts StraightCamera() {
  precise::CameraFacts camera;
  camera.rotation = {1, 0, 0, 0, 1, 0, 0, 0, 1};
  camera.translation = {0, 0, 10};
  camera.focalLength = 1000;
  camera.centreX = 500;
  camera.centreY = 400;
  return camera;
}

precise::Mark MarkAt(int row, int column) {
  precise::Mark mark;
  mark.row = row;
  mark.column = column;
  return mark;
}

TEST(SeenAt, TheAxisIsTheCentre) {
  const PicturePlace place = SeenAt(StraightCamera(), 0, 0);
  EXPECT_EQ(place.x, 500);
  EXPECT_EQ(place.y, 400);
}

TEST(SeenAt, TheAngleSettlesTheDistance) {
  const PicturePlace place = SeenAt(StraightCamera(), 0, 10);
  EXPECT_NEAR(place.x, 500 + 1000 * std::atan(1.0), 1e-9);
  EXPECT_NEAR(place.y, 400, 1e-9);
}

TEST(SeenAt, EveryCoefficientCounts) {
  precise::CameraFacts camera = StraightCamera();
  camera.k1 = 0.1;
  camera.k2 = 0.02;
  camera.k3 = 0.003;
  const double a = std::atan(1.0);
  const double angle = a + 0.1 * std::pow(a, 3) + 0.02 * std::pow(a, 5) + 0.003 * std::pow(a, 7);
  EXPECT_NEAR(SeenAt(camera, 0, 10).x, 500 + 1000 * angle, 1e-9);
}

TEST(SeenAt, RowsHaveAPitchOfTheirOwnAndTheBoardIsTurned) {
  precise::CameraFacts camera = StraightCamera();
  camera.aspect = 2;
  EXPECT_NEAR(SeenAt(camera, 5, 0).y, 400 + 1000 * std::atan(1.0), 1e-9);
  camera.rotation = {0, -1, 0, 1, 0, 0, 0, 0, 1};  // x to y
  EXPECT_NEAR(SeenAt(camera, 0, 10).y, 400 + 1000 * std::atan(1.0), 1e-9);
  EXPECT_NEAR(SeenAt(camera, 5, 0).x, 500 - 1000 * std::atan(1.0), 1e-9);
}

TEST(Curves, RunFromTheFirstMarkOfALineToItsLast) {
  const precise::CameraFacts camera = StraightCamera();
  const std::vector<precise::Mark> marks{MarkAt(0, 1), MarkAt(0, 3), MarkAt(1, 2)};
  const std::vector<Curve> rows = RowCurves(camera, marks);
  ASSERT_EQ(rows.size(), 1u);  // row 1 is one mark
  ASSERT_EQ(rows[0].size(), 9u);
  EXPECT_EQ(rows[0].front().x, SeenAt(camera, 0, 1).x);
  EXPECT_EQ(rows[0][1].x, SeenAt(camera, 0, 1.25).x);
  EXPECT_EQ(rows[0].back().x, SeenAt(camera, 0, 3).x);
  EXPECT_TRUE(ColumnCurves(camera, marks).empty());
  const std::vector<Curve> columns = ColumnCurves(camera, {MarkAt(2, 5), MarkAt(0, 5)});
  ASSERT_EQ(columns.size(), 1u);
  EXPECT_EQ(columns[0].front().y, SeenAt(camera, 0, 5).y);
  EXPECT_EQ(columns[0].back().y, SeenAt(camera, 2, 5).y);
}

}  // namespace
}  // namespace quorvex::tests
