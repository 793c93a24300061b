#include "precise/camera_start.h"

#include <Eigen/Eigenvalues>
#include <Eigen/Geometry>
#include <Eigen/LU>
#include <Eigen/SVD>
#include <algorithm>
#include <cmath>

namespace quorvex::precise {
namespace {

constexpr double kWidestAngle = 3.0;  // radians; no lens sees straight behind itself

// The ray of an equidistant lens, of length 1.
Eigen::Vector3d RayOf(const Eigen::Vector2d& away, double focalLength) {
  const double angle = std::min(away.norm() / focalLength, kWidestAngle);
  const Eigen::Vector2d outward = away / std::max(away.norm(), 1e-9);
  Eigen::Vector3d ray;
  ray << outward * std::sin(angle), std::cos(angle);
  return ray;
}

Eigen::Vector3d OnBoard(const LabelledPoint& point, const Eigen::Vector2d& labelMiddle) {
  return {point.label.x() - labelMiddle.x(), point.label.y() - labelMiddle.y(), 1.0};
}

// From the board, its origin at `labelMiddle`, to the rays; its scale and sign are not known.
Eigen::Matrix3d Homography(const std::vector<LabelledPoint>& points,
                           const std::vector<Eigen::Vector3d>& rays,
                           const Eigen::Vector2d& labelMiddle) {
  Eigen::Matrix<double, 9, 9> squares = Eigen::Matrix<double, 9, 9>::Zero();
  for (std::size_t k = 0; k < points.size(); ++k) {
    const Eigen::Vector3d onBoard = OnBoard(points[k], labelMiddle);
    Eigen::Matrix<double, 3, 9> rows = Eigen::Matrix<double, 3, 9>::Zero();  // ray x (H board)
    for (Eigen::Index i = 0; i < 3; ++i) {
      const Eigen::Index next = (i + 1) % 3;
      const Eigen::Index last = (i + 2) % 3;
      rows.block<1, 3>(i, 3 * last) = rays[k][next] * onBoard.transpose();
      rows.block<1, 3>(i, 3 * next) = -rays[k][last] * onBoard.transpose();
    }
    squares.noalias() += rows.transpose() * rows;
  }
  const Eigen::SelfAdjointEigenSolver<Eigen::Matrix<double, 9, 9>> solver(squares);
  const Eigen::Matrix<double, 9, 1> best = solver.eigenvectors().col(0);
  Eigen::Matrix3d homography;
  for (Eigen::Index i = 0; i < 3; ++i) {
    homography.row(i) = best.segment<3>(3 * i).transpose();
  }
  return homography;
}

}  // namespace

bool StartCamera(const std::vector<LabelledPoint>& points, const Eigen::Vector2d& middle,
                 double focalLength, CameraModel& model) {
  Eigen::Vector2d labelMiddle = Eigen::Vector2d::Zero();
  std::vector<Eigen::Vector3d> rays;
  rays.reserve(points.size());
  for (const LabelledPoint& point : points) {
    labelMiddle += point.label / static_cast<double>(points.size());
    rays.push_back(RayOf(point.pixel - middle, focalLength));
  }
  Eigen::Matrix3d homography = Homography(points, rays, labelMiddle);
  int agree = 0;
  for (std::size_t i = 0; i < rays.size(); ++i) {
    agree += rays[i].dot(homography * OnBoard(points[i], labelMiddle)) > 0.0 ? 1 : -1;
  }
  homography *= (agree < 0 ? -2.0 : 2.0) / (homography.col(0).norm() + homography.col(1).norm());
  Eigen::Matrix3d turn;
  turn << homography.col(0), homography.col(1), homography.col(0).cross(homography.col(1));
  const Eigen::JacobiSVD<Eigen::Matrix3d> svd(turn, Eigen::ComputeFullU | Eigen::ComputeFullV);
  model.rotation = svd.matrixU() * svd.matrixV().transpose();
  model.translation = homography.col(2) - model.rotation.leftCols<2>() * labelMiddle;
  model.focalLength = focalLength;
  model.centre = middle;
  return model.rotation.determinant() > 0.0 && model.translation.allFinite();
}

}  // namespace quorvex::precise
