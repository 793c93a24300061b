#include "tools/render/camera.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace quorvex::tools {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr int kAngleSteps = 4096;  // from 0 to 180 degrees, in the search for the largest angle
constexpr int kBisections = 64;    // more than a double has bits
constexpr double kEntriesPerPixel = 8;  // of the ray table

}  // namespace

Camera::Camera(const RenderSettings& settings)
    : model_(settings.model),
      focalLength_(settings.focalLength),
      k1_(settings.k1),
      k2_(settings.k2),
      k3_(settings.k3),
      k4_(settings.k4),
      principalPoint_{settings.principalX.value_or((settings.width - 1) / 2.0),
                      settings.principalY.value_or((settings.height - 1) / 2.0)},
      maxAngle_(FindMaxAngle()),
      maxRadius_(model_ == CameraModel::kPinhole || model_ == CameraModel::kStereographic
                     ? std::numeric_limits<double>::infinity()
                     : RadiusAt(maxAngle_)) {}

double Camera::RadiusAt(double angle) const {
  switch (model_) {
    case CameraModel::kPinhole:
      return focalLength_ * std::tan(angle);
    case CameraModel::kKannalaBrandt: {
      const double square = angle * angle;
      return focalLength_ * angle *
             (1 + square * (k1_ + square * (k2_ + square * (k3_ + square * k4_))));
    }
    case CameraModel::kEquisolid:
      return 2 * focalLength_ * std::sin(angle / 2);
    case CameraModel::kStereographic:
      return 2 * focalLength_ * std::tan(angle / 2);
    case CameraModel::kEquidistant:
      break;
  }
  return focalLength_ * angle;
}

double Camera::AngleAt(double radius) const {
  switch (model_) {
    case CameraModel::kPinhole:
      return std::atan(radius / focalLength_);
    case CameraModel::kEquidistant:
      return radius / focalLength_;
    case CameraModel::kEquisolid:
      return 2 * std::asin(std::min(1.0, radius / (2 * focalLength_)));
    case CameraModel::kStereographic:
      return 2 * std::atan(radius / (2 * focalLength_));
    case CameraModel::kKannalaBrandt:
      break;
  }
  double low = 0;
  double high = maxAngle_;
  for (int i = 0; i < kBisections; ++i) {
    const double middle = (low + high) / 2;
    (RadiusAt(middle) < radius ? low : high) = middle;
  }
  return (low + high) / 2;
}

double Camera::Slope(double angle) const {
  const double square = angle * angle;
  return 1 + square * (3 * k1_ + square * (5 * k2_ + square * (7 * k3_ + square * 9 * k4_)));
}

double Camera::FindMaxAngle() const {
  if (model_ == CameraModel::kPinhole) {
    return kPi / 2;
  }
  if (model_ != CameraModel::kKannalaBrandt) {
    return kPi;
  }
  // Where the polynomial turns back it would show two directions at one pixel.
  int step = 0;
  while (step < kAngleSteps && Slope((step + 1) * kPi / kAngleSteps) > 0) {
    ++step;
  }
  return step * kPi / kAngleSteps;
}

bool Camera::Sees(double angle) const {
  const bool growsForEver =
      model_ == CameraModel::kPinhole || model_ == CameraModel::kStereographic;
  return growsForEver ? angle < maxAngle_ : angle <= maxAngle_;
}

std::optional<PixelPoint> Camera::Project(const Vector3& ray) const {
  const double lateral = std::sqrt(ray.x * ray.x + ray.y * ray.y);
  const double angle = std::atan2(lateral, ray.z);
  if (!Sees(angle)) {
    return std::nullopt;
  }
  if (lateral == 0) {
    return principalPoint_;
  }
  const double scale = RadiusAt(angle) / lateral;
  return PixelPoint{principalPoint_.x + ray.x * scale, principalPoint_.y + ray.y * scale};
}

std::optional<Vector3> Camera::Ray(const PixelPoint& pixel) const {
  const double x = pixel.x - principalPoint_.x;
  const double y = pixel.y - principalPoint_.y;
  const double radius = std::sqrt(x * x + y * y);
  if (radius > maxRadius_) {
    return std::nullopt;
  }
  if (radius == 0) {
    return Vector3{0, 0, 1};
  }
  const double angle = AngleAt(radius);
  const double scale = std::sin(angle) / radius;
  return Vector3{x * scale, y * scale, std::cos(angle)};
}

RayTable::RayTable(const Camera& camera, double largestRadius)
    : maxRadius_(std::min(largestRadius, camera.MaxRadius())) {
  // One entry after the last radius, which Lookup interpolates towards.
  const std::size_t count = static_cast<std::size_t>(maxRadius_ * kEntriesPerPixel) + 2;
  entries_.reserve(count);
  entries_.push_back({1 / camera.FocalLength(), 1});  // the limit of every model on the axis
  for (std::size_t i = 1; i < count; ++i) {
    const double radius = std::min(static_cast<double>(i) / kEntriesPerPixel, camera.MaxRadius());
    const double angle = camera.AngleAt(radius);
    entries_.push_back({std::sin(angle) / radius, std::cos(angle)});
  }
}

bool RayTable::Lookup(double offsetX, double offsetY, Vector3& ray) const {
  const double radius = std::sqrt(offsetX * offsetX + offsetY * offsetY);
  if (radius > maxRadius_) {
    return false;
  }
  const double position = radius * kEntriesPerPixel;
  const int index = static_cast<int>(position);
  const double part = position - index;
  const Entry& low = entries_[static_cast<std::size_t>(index)];
  const Entry& high = entries_[static_cast<std::size_t>(index) + 1];
  const double lateral = low.lateral + part * (high.lateral - low.lateral);
  ray = {offsetX * lateral, offsetY * lateral, low.axial + part * (high.axial - low.axial)};
  return true;
}

}  // namespace quorvex::tools
