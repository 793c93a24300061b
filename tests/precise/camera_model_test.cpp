#include "precise/camera_model.h"

#include <gtest/gtest.h>

#include <Eigen/Geometry>

namespace quorvex::tests {
namespace {

using precise::CameraModel;

CameraModel Tilted() {
  CameraModel model;
  model.rotation = Eigen::AngleAxisd(0.4, Eigen::Vector3d(1, 2, 3).normalized()).toRotationMatrix();
  model.translation = {-3.0, -2.0, 6.0};
  model.focalLength = 500.0;
  model.k1 = -0.05;
  model.k2 = 0.01;
  model.k3 = -0.002;
  model.centre = {320.0, 240.0};
  model.aspect = 1.1;
  return model;
}

TEST(CameraModel, TheAxisIsSeenAtTheCentre) {
  CameraModel model;
  model.centre = {100.0, 50.0};
  model.focalLength = 300.0;
  Eigen::Vector2d pixel;
  Eigen::Matrix2d byLabel;
  ASSERT_TRUE(model.Project({0.0, 0.0}, pixel, nullptr, &byLabel));
  EXPECT_EQ(pixel, Eigen::Vector2d(100.0, 50.0));
  EXPECT_NEAR(byLabel(0, 0), 300.0, 1e-9);
  ASSERT_TRUE(model.Project({1.0, 0.0}, pixel));
  EXPECT_NEAR(pixel.x(), 100.0 + 300.0 * 0.7853981633974483, 1e-9);
}

TEST(CameraModel, DerivativesAreThoseOfSmallSteps) {
  const CameraModel model = Tilted();
  const Eigen::Vector2d label(2.0, 5.0);
  Eigen::Vector2d pixel;
  CameraModel::Jacobian jacobian;
  Eigen::Matrix2d byLabel;
  ASSERT_TRUE(model.Project(label, pixel, &jacobian, &byLabel));
  constexpr double kStep = 1e-6;
  for (int i = 0; i < CameraModel::kParameters; ++i) {
    CameraModel::Step step = CameraModel::Step::Zero();
    step[i] = kStep;
    Eigen::Vector2d moved;
    ASSERT_TRUE(model.Moved(step).Project(label, moved));
    EXPECT_LT(((moved - pixel) / kStep - jacobian.col(i)).norm(),
              2e-2 + 1e-4 * jacobian.col(i).norm())
        << "parameter " << i;
  }
  for (int i = 0; i < 2; ++i) {
    Eigen::Vector2d moved;
    ASSERT_TRUE(model.Project(label + kStep * Eigen::Vector2d::Unit(i), moved));
    EXPECT_LT(((moved - pixel) / kStep - byLabel.col(i)).norm(), 1e-2);
  }
}

TEST(CameraModel, BehindTheFoldOfTheLensNothingIsSeen) {
  CameraModel model;
  model.k1 = -0.4;  // folds over at 0.84 radians
  Eigen::Vector2d pixel;
  EXPECT_TRUE(model.Project({0.5, 0.0}, pixel));
  EXPECT_FALSE(model.Project({2.0, 0.0}, pixel));
}

}  // namespace
}  // namespace quorvex::tests
