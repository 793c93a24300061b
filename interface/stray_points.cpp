#include "interface/stray_points.h"

#include <algorithm>
#include <cstddef>

#include "base/point_geometry.h"

namespace quorvex {
namespace {

constexpr float kDuplicateReach = 3.0f;  // pixels in x and in y

bool IsOutside(const CalibrationPoint& point, int width, int height) {
  return point.x > static_cast<float>(width - 1) || point.x < 0.0f ||
         point.y > static_cast<float>(height - 1) || point.y < 0.0f;
}

}  // namespace

// From the last point to the first: a point is held against all earlier ones, those included that
// are removed later.
void RemoveStrayPoints(int width, int height, PointList& points) {
  for (std::size_t i = points.size(); i-- > 0;) {
    const auto here = points.begin() + static_cast<std::ptrdiff_t>(i);
    const CalibrationPoint point = *here;
    const bool isStray = IsOutside(point, width, height) ||
                         std::any_of(points.begin(), here, [&point](const CalibrationPoint& other) {
                           return IsInSquare(point, other.x, other.y, kDuplicateReach);
                         });
    if (isStray) {
      points.erase(here);
    }
  }
}

void TurnUpsideDown(int height, PointList& points) {
  for (CalibrationPoint& point : points) {
    point.y = static_cast<float>(height - 1) - point.y;
  }
}

}  // namespace quorvex
