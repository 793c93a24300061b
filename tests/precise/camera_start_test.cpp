#include "precise/camera_start.h"

#include <gtest/gtest.h>

#include <Eigen/Geometry>

#include "tests/precise/board_views.h"

namespace quorvex::tests {
namespace {

using precise::CameraModel;
using precise::StartCamera;

CameraModel Fisheye() {
  CameraModel model;
  model.rotation =
      Eigen::AngleAxisd(0.35, Eigen::Vector3d(1, -1, 0.5).normalized()).toRotationMatrix();
  model.translation = {-4.0, -3.5, 5.0};
  model.focalLength = 350.0;
  model.centre = {511.5, 383.5};
  return model;
}

TEST(CameraStart, IsThePoseWhenTheLensIsRight) {
  const CameraModel truth = Fisheye();
  CameraModel start;
  ASSERT_TRUE(StartCamera(PointsSeenBy(truth), truth.centre, truth.focalLength, start));
  EXPECT_LT((start.rotation - truth.rotation).norm(), 1e-6);
  EXPECT_LT((start.translation - truth.translation).norm(), 1e-5);
  EXPECT_EQ(start.focalLength, truth.focalLength);
}

TEST(CameraStart, StandsBeforeTheBoardWithAnotherLens) {
  const CameraModel truth = Fisheye();
  CameraModel start;
  ASSERT_TRUE(StartCamera(PointsSeenBy(truth), truth.centre, 500.0, start));
  EXPECT_GT(start.translation.z(), 0.0);
  EXPECT_NEAR(start.rotation.determinant(), 1.0, 1e-9);
}

}  // namespace
}  // namespace quorvex::tests
