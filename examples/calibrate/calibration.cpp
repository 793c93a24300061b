#include "examples/calibrate/calibration.h"

#include <cmath>
#include <cstddef>
#include <opencv2/calib3d.hpp>
#include <stdexcept>

namespace calibrate {
namespace {

constexpr std::size_t kFewestViews =
    3;  // and tilted differently; else focal length and distance mix
constexpr int kMostRounds = 200;
constexpr double kSmallestStep = 1e-12;  // relative; the rounds end there

}  // namespace

Calibration Calibrate(const std::vector<View>& views, double pitch, const cv::Size& pictureSize) {
  std::vector<std::vector<cv::Point3d>> boards;
  std::vector<std::vector<cv::Point2d>> pictures;
  for (const View& view : views) {
    if (view.empty()) {
      continue;
    }
    boards.emplace_back();
    pictures.emplace_back();
    for (const SeenMark& mark : view) {
      boards.back().emplace_back(mark.column * pitch, mark.row * pitch, 0);
      pictures.back().emplace_back(mark.x, mark.y);
    }
  }
  if (boards.size() < kFewestViews) {
    throw std::runtime_error("a calibration needs marks in three pictures or more");
  }

  Calibration result;
  std::vector<cv::Vec3d> rotations;
  std::vector<cv::Vec3d> translations;
  // Without CALIB_RECOMPUTE_EXTRINSIC the boards stay where the first guess put them.
  cv::fisheye::calibrate(boards, pictures, pictureSize, result.camera, result.coefficients,
                         rotations, translations,
                         cv::fisheye::CALIB_RECOMPUTE_EXTRINSIC | cv::fisheye::CALIB_FIX_SKEW,
                         cv::TermCriteria(cv::TermCriteria::COUNT + cv::TermCriteria::EPS,
                                          kMostRounds, kSmallestStep));

  for (std::size_t i = 0; i < boards.size(); ++i) {
    std::vector<cv::Point2d> expected;
    cv::fisheye::projectPoints(boards[i], expected, rotations[i], translations[i], result.camera,
                               result.coefficients);
    for (std::size_t k = 0; k < expected.size(); ++k) {
      const cv::Point2d& seen = pictures[i][k];
      result.residuals.push_back({seen.x, seen.y, expected[k].x - seen.x, expected[k].y - seen.y});
    }
  }
  return result;
}

double RootMeanSquare(const std::vector<Residual>& residuals) {
  double sum = 0;
  for (const Residual& residual : residuals) {
    sum += residual.dx * residual.dx + residual.dy * residual.dy;
  }
  return residuals.empty() ? 0 : std::sqrt(sum / static_cast<double>(residuals.size()));
}

}  // namespace calibrate
