#include "precise/camera_model.h"

#include <Eigen/Geometry>
#include <cmath>

namespace quorvex::precise {
namespace {

constexpr double kLeastSlope = 0.15;   // of the radius by the angle, over f: nearly folded over
constexpr double kLargestAngle = 1.9;  // radians; 109 degrees, beyond what fisheye lenses see
constexpr double kOnAxis = 1e-9;       // radians; the picture is locally flat there

}  // namespace

bool CameraModel::Project(const Eigen::Vector2d& label, Eigen::Vector2d& pixel, Jacobian* jacobian,
                          Eigen::Matrix2d* byLabel) const {
  const Eigen::Vector3d onBoard(label.x(), label.y() * aspect, 0.0);
  const Eigen::Vector3d turned = rotation * onBoard;
  const Eigen::Vector3d ray = turned + translation;
  const double lateral = std::hypot(ray.x(), ray.y());
  const double square = ray.squaredNorm();
  if (!(square > 1e-12)) {
    return false;
  }
  const double angle = std::atan2(lateral, ray.z());
  const double a2 = angle * angle;
  const double bent = angle * (1.0 + a2 * (k1 + a2 * (k2 + a2 * k3)));
  const double slope = 1.0 + a2 * (3.0 * k1 + a2 * (5.0 * k2 + a2 * 7.0 * k3));
  if (!(angle <= kLargestAngle) || !(slope >= kLeastSlope) || !(bent >= 0.0)) {
    return false;
  }
  const bool isOnAxis = angle < kOnAxis;
  Eigen::Vector2d outward = Eigen::Vector2d::UnitX();
  if (!isOnAxis) {
    outward = ray.head<2>() / lateral;
  }
  const double radius = focalLength * bent;
  pixel = centre + radius * outward;
  if (jacobian == nullptr && byLabel == nullptr) {
    return true;
  }
  // By the ray: outwards the angle changes, sideways the direction does.
  const double perLateral = isOnAxis ? focalLength / ray.z() : radius / lateral;
  const Eigen::Vector2d sideways(-outward.y(), outward.x());
  Eigen::Vector3d angleByRay;
  angleByRay << ray.z() * outward / square, -lateral / square;
  Eigen::Matrix<double, 2, 3> byRay = focalLength * slope * outward * angleByRay.transpose();
  byRay.leftCols<2>() += perLateral * sideways * sideways.transpose();
  if (byLabel != nullptr) {
    byLabel->col(0) = byRay * rotation.col(0);
    byLabel->col(1) = byRay * rotation.col(1) * aspect;
  }
  if (jacobian != nullptr) {
    Eigen::Matrix3d cross;  // minus the cross product with the turned point
    cross << 0.0, turned.z(), -turned.y(), -turned.z(), 0.0, turned.x(), turned.y(), -turned.x(),
        0.0;
    jacobian->leftCols<3>() = byRay * cross;
    jacobian->middleCols<3>(3) = byRay;
    jacobian->col(6) = radius * outward;
    jacobian->col(7) = focalLength * angle * a2 * outward;
    jacobian->col(8) = focalLength * angle * a2 * a2 * outward;
    jacobian->middleCols<2>(9).setIdentity();
    jacobian->col(11) = byRay * rotation.col(1) * onBoard.y();
    jacobian->col(12) = focalLength * angle * a2 * a2 * a2 * outward;
  }
  return true;
}

CameraModel CameraModel::Moved(const Step& step) const {
  CameraModel moved = *this;
  const Eigen::Vector3d turn = step.head<3>();
  const double angle = turn.norm();
  if (angle > 0.0) {
    moved.rotation = Eigen::AngleAxisd(angle, turn / angle).toRotationMatrix() * rotation;
  }
  moved.translation += step.segment<3>(3);
  moved.focalLength *= std::exp(step[6]);
  moved.k1 += step[7];
  moved.k2 += step[8];
  moved.centre += step.segment<2>(9);
  moved.aspect *= std::exp(step[11]);
  moved.k3 += step[12];
  return moved;
}

}  // namespace quorvex::precise
