#include "postprocess/neighbour_search.h"

#include <cmath>

#include "base/point_geometry.h"

namespace quorvex {
namespace {

constexpr double kPi = 3.1415926;  // cut short on purpose: the bounds of the sectors depend on it
constexpr double kNearest = 5.0;   // pixels, which a neighbour must exceed
constexpr float kFarthest = 1000.0f;  // pixels, which a neighbour must fall below

// The direction from one point to another in degrees, 0 towards larger x, 90 towards larger y.
double DirectionInDegrees(const CalibrationPoint& from, const CalibrationPoint& to) {
  const float dx = to.x - from.x;
  const float dy = to.y - from.y;
  const double degrees = std::atan2(static_cast<double>(dy), static_cast<double>(dx)) * 180.0 / kPi;
  return degrees < 0.0 ? degrees + 360.0 : degrees;
}

bool IsInSector(double degrees, Sector sector) {
  switch (sector) {
    case kTowardsLargerX:
      return degrees < 30.0 || degrees > 330.0;
    case kTowardsSmallerX:
      return degrees > 150.0 && degrees < 210.0;
    case kTowardsLargerY:
      return degrees > 60.0 && degrees < 120.0;
    case kTowardsSmallerY:
      return degrees > 240.0 && degrees < 300.0;
  }
  return false;
}

}  // namespace

bool FindNeighbourInSector(const PointList& points, const CalibrationPoint& from,
                           CalibrationPoint& found, Sector sector) {
  const CalibrationPoint* nearest = nullptr;
  float nearestDistance = kFarthest;
  for (const CalibrationPoint& point : points) {
    const float distance = PointDistance(from, point);
    if (static_cast<double>(distance) > kNearest && distance < nearestDistance &&
        IsInSector(DirectionInDegrees(from, point), sector)) {
      nearest = &point;
      nearestDistance = distance;
    }
  }
  if (nearest == nullptr) {
    return false;
  }
  found = *nearest;
  return true;
}

}  // namespace quorvex
