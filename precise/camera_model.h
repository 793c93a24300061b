// A camera that sees the board: its place, and a lens whose pictures are symmetric about its axis.
//
// A mark of label (column, row) lies at (column, row * aspect, 0) on the board, in pitches of the
// columns. A ray at the angle a from the axis meets the picture f (a + k1 a^3 + k2 a^5 + k3 a^7) px
// from the centre. One picture does not determine a camera; the model is a smooth map of labels to
// px.
#ifndef QUORVEX_PRECISE_CAMERA_MODEL_H_
#define QUORVEX_PRECISE_CAMERA_MODEL_H_

#include <Eigen/Core>
#include <vector>

namespace quorvex::precise {

struct CameraModel {
  static constexpr int kParameters = 13;
  using Step = Eigen::Matrix<double, kParameters, 1>;
  using Jacobian = Eigen::Matrix<double, 2, kParameters>;

  Eigen::Matrix3d rotation = Eigen::Matrix3d::Identity();  // board to camera
  Eigen::Vector3d translation = Eigen::Vector3d::UnitZ();  // pitches
  double focalLength = 1.0;                                // px per radian on the axis
  double k1 = 0.0;
  double k2 = 0.0;
  double k3 = 0.0;
  Eigen::Vector2d centre = Eigen::Vector2d::Zero();  // px
  double aspect = 1.0;                               // pitch of the rows in pitches of the columns

  // Where a label is seen. False beyond the angle where the lens folds over. The label need not be
  // whole. `jacobian`, when not null, is by the parameters of Moved, `byLabel` by column and row.
  bool Project(const Eigen::Vector2d& label, Eigen::Vector2d& pixel, Jacobian* jacobian = nullptr,
               Eigen::Matrix2d* byLabel = nullptr) const;

  // The model after a step: rotation vector (3), translation (3), log focal length, k1, k2, centre
  // (2), log aspect, k3.
  CameraModel Moved(const Step& step) const;
};

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_CAMERA_MODEL_H_
