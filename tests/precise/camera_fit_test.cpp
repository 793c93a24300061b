#include "precise/camera_fit.h"

#include <gtest/gtest.h>

#include <Eigen/Geometry>

#include "tests/precise/board_views.h"

namespace quorvex::tests {
namespace {

using precise::CameraFit;
using precise::CameraModel;
using precise::FitCamera;
using precise::LabelledPoint;

CameraModel Fisheye() {
  CameraModel model;
  model.rotation =
      Eigen::AngleAxisd(0.35, Eigen::Vector3d(1, -1, 0.5).normalized()).toRotationMatrix();
  model.translation = {-4.0, -3.5, 5.0};
  model.focalLength = 350.0;
  model.k1 = -0.02;
  model.centre = {510.0, 380.0};
  return model;
}

TEST(CameraFit, PredictsPlacesThatItHasNotSeen) {
  const CameraModel truth = Fisheye();
  const CameraFit fit = FitCamera(PointsSeenBy(truth), 1024, 768);
  ASSERT_TRUE(fit.isFitted);
  EXPECT_LT(fit.residual, 0.01);
  for (const Eigen::Vector2d& label : {Eigen::Vector2d(-1, 3), Eigen::Vector2d(9, 8)}) {
    Eigen::Vector2d expected;
    Eigen::Vector2d pixel;
    ASSERT_TRUE(truth.Project(label, expected));
    ASSERT_TRUE(fit.model.Project(label, pixel));
    EXPECT_LT((pixel - expected).norm(), 0.1);
  }
}

TEST(CameraFit, WrongLabelsDoNotBendIt) {
  const CameraModel truth = Fisheye();
  std::vector<LabelledPoint> points = PointsSeenBy(truth);
  for (std::size_t i = 0; i < points.size(); i += 9) {
    points[i].label.y() += 1.0;
  }
  const CameraFit fit = FitCamera(points, 1024, 768);
  ASSERT_TRUE(fit.isFitted);
  Eigen::Vector2d pixel;
  ASSERT_TRUE(fit.model.Project(points[40].label, pixel));
  EXPECT_LT((pixel - points[40].pixel).norm(), 0.05);
}

TEST(CameraFit, ThreePointsAreNotEnough) {
  std::vector<LabelledPoint> points = PointsSeenBy(Fisheye());
  points.resize(3);
  EXPECT_FALSE(FitCamera(points, 1024, 768).isFitted);
}

TEST(CameraFit, PointsThatNoCameraSeesLeaveALargeResidual) {
  std::vector<LabelledPoint> points = PointsSeenBy(Fisheye());
  for (std::size_t i = 0; i < points.size(); ++i) {
    points[i].pixel = {static_cast<double>(i * 7919 % 1000), static_cast<double>(i * 104729 % 700)};
  }
  const CameraFit fit = FitCamera(points, 1024, 768);
  EXPECT_TRUE(!fit.isFitted || fit.residual > 20.0);
}

TEST(CameraFit, PointsBehindTheStartAreNotFitted) {
  CameraModel behind = Fisheye();
  behind.translation = -behind.translation;
  EXPECT_FALSE(RefineCamera(PointsSeenBy(Fisheye()), behind, 1024, 768).isFitted);
}

// All marks in one place of the picture: any camera far enough away would see them so.
TEST(CameraFit, OnePlaceIsNoView) {
  std::vector<LabelledPoint> points = PointsSeenBy(Fisheye());
  for (LabelledPoint& point : points) {
    point.pixel = {500.0, 400.0};
  }
  const CameraFit fit = FitCamera(points, 1024, 768);
  EXPECT_TRUE(!fit.isFitted || fit.model.translation.norm() > 100.0);
}

}  // namespace
}  // namespace quorvex::tests
