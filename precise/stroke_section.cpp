#include "precise/stroke_section.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quorvex::precise {
namespace {

constexpr int kHalf = 3;  // samples on either side of the middle

}  // namespace

StrokeSection CutStroke(const PyramidLevel& level, const Eigen::Vector2d& point,
                        const Eigen::Vector2d& normal, double spacing) {
  StrokeSection section;
  const int stepX = ToFixed(normal.x() * spacing);
  const int stepY = ToFixed(normal.y() * spacing);
  const int x = ToFixed(point.x());
  const int y = ToFixed(point.y());
  if (!level.HoldsFixed(x - kHalf * stepX, y - kHalf * stepY) ||
      !level.HoldsFixed(x + kHalf * stepX, y + kHalf * stepY)) {
    return section;
  }
  section.isInside = true;
  std::array<int, 2 * kHalf + 1> values{};
  int k = -kHalf;
  for (int& value : values) {
    value = level.SampleFixed(x + k * stepX, y + k * stepY);
    ++k;
  }
  const int side = std::min(values.front(), values.back());
  section.brightest = static_cast<double>(std::max(values.front(), values.back())) / kLevelUnit;
  section.depth =
      static_cast<double>(side - std::min({values[kHalf - 1], values[kHalf], values[kHalf + 1]})) /
      kLevelUnit;
  int mass = 0;
  int moment = 0;
  k = -kHalf;
  for (const int value : values) {
    const int darkness = std::max(0, side - value);
    mass += darkness;
    moment += k * darkness;
    ++k;
  }
  section.offset = mass > 0 ? spacing * moment / mass : 0.0;
  return section;
}

}  // namespace quorvex::precise
