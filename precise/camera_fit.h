// Fits the camera model to labelled marks.
//
// Start: for each of five focal lengths the marks become rays, a homography from the board to the
// rays is solved linearly and taken apart into a pose; the best is followed by Levenberg-Marquardt
// steps with weights that leave outliers out.
#ifndef QUORVEX_PRECISE_CAMERA_FIT_H_
#define QUORVEX_PRECISE_CAMERA_FIT_H_

#include <Eigen/Core>
#include <vector>

#include "precise/camera_model.h"
#include "precise/camera_start.h"

namespace quorvex::precise {

struct CameraFit {
  bool isFitted = false;
  CameraModel model;
  double residual = 0.0;  // px, robust standard deviation of one coordinate
  Eigen::Matrix<double, CameraModel::kParameters, CameraModel::kParameters> covariance =
      Eigen::Matrix<double, CameraModel::kParameters, CameraModel::kParameters>::Zero();
};

// Needs four points or more, not all on one line. width and height: of the picture, px.
CameraFit FitCamera(const std::vector<LabelledPoint>& points, int width, int height);

// The same from a model that is near already.
CameraFit RefineCamera(const std::vector<LabelledPoint>& points, const CameraModel& start,
                       int width, int height);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_CAMERA_FIT_H_
