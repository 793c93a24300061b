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
    : model(settings.model),
      focalLength(settings.focalLength),
      k1(settings.k1),
      k2(settings.k2),
      k3(settings.k3),
      k4(settings.k4),
      principalPoint{settings.principalX.value_or((settings.width - 1) / 2.0),
                     settings.principalY.value_or((settings.height - 1) / 2.0)},
      maxAngle(FindMaxAngle()),
      maxRadius(model == CameraModel::kPinhole ? std::numeric_limits<double>::infinity()
                                               : RadiusAt(maxAngle)) {}

double Camera::RadiusAt(double angle) const {
  switch (model) {
    case CameraModel::kPinhole:
      return focalLength * std::tan(angle);
    case CameraModel::kKannalaBrandt: {
      const double square = angle * angle;
      return focalLength * angle *
             (1 + square * (k1 + square * (k2 + square * (k3 + square * k4))));
    }
    case CameraModel::kEquidistant:
      break;
  }
  return focalLength * angle;
}

double Camera::AngleAt(double radius) const {
  if (model == CameraModel::kPinhole) {
    return std::atan(radius / focalLength);
  }
  if (model == CameraModel::kEquidistant) {
    return radius / focalLength;
  }
  double low = 0;
  double high = maxAngle;
  for (int i = 0; i < kBisections; ++i) {
    const double middle = (low + high) / 2;
    (RadiusAt(middle) < radius ? low : high) = middle;
  }
  return (low + high) / 2;
}

double Camera::Slope(double angle) const {
  const double square = angle * angle;
  return 1 + square * (3 * k1 + square * (5 * k2 + square * (7 * k3 + square * 9 * k4)));
}

double Camera::FindMaxAngle() const {
  if (model == CameraModel::kPinhole) {
    return kPi / 2;
  }
  if (model == CameraModel::kEquidistant) {
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
  return model == CameraModel::kPinhole ? angle < maxAngle : angle <= maxAngle;
}

std::optional<PixelPoint> Camera::Project(const Vector3& ray) const {
  const double lateral = std::sqrt(ray.x * ray.x + ray.y * ray.y);
  const double angle = std::atan2(lateral, ray.z);
  if (!Sees(angle)) {
    return std::nullopt;
  }
  if (lateral == 0) {
    return principalPoint;
  }
  const double scale = RadiusAt(angle) / lateral;
  return PixelPoint{principalPoint.x + ray.x * scale, principalPoint.y + ray.y * scale};
}

std::optional<Vector3> Camera::Ray(const PixelPoint& pixel) const {
  const double x = pixel.x - principalPoint.x;
  const double y = pixel.y - principalPoint.y;
  const double radius = std::sqrt(x * x + y * y);
  if (radius > maxRadius) {
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
    : maxRadius(std::min(largestRadius, camera.MaxRadius())) {
  // One entry behind the last radius, which Lookup interpolates towards.
  const std::size_t count = static_cast<std::size_t>(maxRadius * kEntriesPerPixel) + 2;
  entries.reserve(count);
  entries.push_back({1 / camera.FocalLength(), 1});  // the limit of every model on the axis
  for (std::size_t i = 1; i < count; ++i) {
    const double radius = std::min(static_cast<double>(i) / kEntriesPerPixel, camera.MaxRadius());
    const double angle = camera.AngleAt(radius);
    entries.push_back({std::sin(angle) / radius, std::cos(angle)});
  }
}

bool RayTable::Lookup(double offsetX, double offsetY, Vector3& ray) const {
  const double radius = std::sqrt(offsetX * offsetX + offsetY * offsetY);
  if (radius > maxRadius) {
    return false;
  }
  const double position = radius * kEntriesPerPixel;
  const int index = static_cast<int>(position);
  const double part = position - index;
  const Entry& low = entries[static_cast<std::size_t>(index)];
  const Entry& high = entries[static_cast<std::size_t>(index) + 1];
  const double lateral = low.lateral + part * (high.lateral - low.lateral);
  ray = {offsetX * lateral, offsetY * lateral, low.axial + part * (high.axial - low.axial)};
  return true;
}

}  // namespace quorvex::tools
