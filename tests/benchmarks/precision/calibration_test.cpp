// The direct detector's points are good enough for a calibration by another library, where that was
// there when this was built.
#include <gtest/gtest.h>

#ifdef QUORVEX_HAS_OPENCV
#include <opencv2/calib3d.hpp>
#endif

#include <string>
#include <vector>

#include "benchmarks/precision/direct_detector.h"
#include "benchmarks/precision/scene_pose.h"
#include "benchmarks/precision/scene_renderer.h"

namespace quorvex::tests {

using namespace benchmarks;

namespace {

#ifdef QUORVEX_HAS_OPENCV

constexpr int kPoses = 12;
constexpr double kFocalLength = 1000;  // pixels
constexpr double kCentreX = 1032.5;    // pixels
constexpr double kCentreY = 1017.5;    // pixels

Scene Pose(int pose) {
  SceneRandom random(static_cast<std::uint64_t>(pose + 1));
  Scene scene = StandardScene(random);
  tools::RenderSettings& target = scene.target;
  target.model = tools::CameraModel::kKannalaBrandt;
  target.focalLength = kFocalLength;
  target.principalX = kCentreX;
  target.principalY = kCentreY;
  target.k1 = -0.02;
  target.k2 = 0.004;
  target.k3 = -0.001;
  target.tiltX = random.Between(-35, 35);
  target.tiltY = random.Between(-35, 35);
  target.rotation = random.Between(-40, 40);
  target.rows = 11;
  PlaceWithinAngle(50, scene);
  return scene;
}

void CalibrateFromTwelvePoses() {
  std::vector<std::vector<cv::Point3d>> boards;
  std::vector<std::vector<cv::Point2d>> pictures;
  for (int pose = 0; pose < kPoses; ++pose) {
    const Scene scene = Pose(pose);
    const Detection detection = DetectDirectly(RenderScene(scene).picture);
    ASSERT_GT(detection.marks.size(), 130u) << pose << " " << detection.reason;
    boards.emplace_back();
    pictures.emplace_back();
    for (const FoundMark& mark : detection.marks) {
      boards.back().emplace_back(mark.column * scene.target.pitch, mark.row * scene.target.pitch,
                                 0);
      pictures.back().emplace_back(mark.x, mark.y);
    }
  }
  cv::Matx33d camera = cv::Matx33d::eye();
  cv::Vec4d coefficients;
  std::vector<cv::Vec3d> rotations;
  std::vector<cv::Vec3d> translations;
  const double residual = cv::fisheye::calibrate(
      boards, pictures, cv::Size(2048, 2048), camera, coefficients, rotations, translations,
      cv::fisheye::CALIB_RECOMPUTE_EXTRINSIC | cv::fisheye::CALIB_FIX_SKEW,
      cv::TermCriteria(cv::TermCriteria::EPS + cv::TermCriteria::COUNT, 200, 1e-12));
  testing::Test::RecordProperty("focalLengthX", std::to_string(camera(0, 0)));
  testing::Test::RecordProperty("focalLengthY", std::to_string(camera(1, 1)));
  testing::Test::RecordProperty("centreX", std::to_string(camera(0, 2)));
  testing::Test::RecordProperty("centreY", std::to_string(camera(1, 2)));
  testing::Test::RecordProperty("residual", std::to_string(residual));
  EXPECT_NEAR(camera(0, 0), kFocalLength, 5e-5 * kFocalLength);
  EXPECT_NEAR(camera(1, 1), kFocalLength, 5e-5 * kFocalLength);
  EXPECT_NEAR(camera(0, 2), kCentreX, 0.02);
  EXPECT_NEAR(camera(1, 2), kCentreY, 0.02);
  EXPECT_LT(residual, 0.006);
}

#else

void CalibrateFromTwelvePoses() { GTEST_SKIP() << "built without OpenCV"; }

#endif

TEST(Calibration, TwelvePosesGiveTheCamera) { CalibrateFromTwelvePoses(); }

}  // namespace
}  // namespace quorvex::tests
