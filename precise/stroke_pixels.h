// The pixels of a piece of a stroke, each with its place along and across the stroke.
#ifndef QUORVEX_PRECISE_STROKE_PIXELS_H_
#define QUORVEX_PRECISE_STROKE_PIXELS_H_

#include <Eigen/Core>
#include <algorithm>
#include <array>
#include <cmath>

#include "precise/gray_picture.h"

namespace quorvex::precise {

// The middle line of a stroke: from `origin` along `direction` it runs off to the side of `normal`
// by shape[0] + shape[1] u + shape[2] u^2 + shape[3] u^3, u being px along the direction.
struct StrokeLine {
  Eigen::Vector2d origin = Eigen::Vector2d::Zero();
  Eigen::Vector2d direction = Eigen::Vector2d::UnitX();
  std::array<double, 4> shape = {};

  Eigen::Vector2d Normal() const { return {-direction.y(), direction.x()}; }
  double Offset(double u) const {
    return shape[0] + u * (shape[1] + u * (shape[2] + u * shape[3]));
  }
  double Slope(double u) const { return shape[1] + u * (2.0 * shape[2] + u * 3.0 * shape[3]); }
  Eigen::Vector2d At(double u) const { return origin + u * direction + Offset(u) * Normal(); }
};

// Calls use(level, x, y, u, v) for the pixels with from <= u < to and |v| <= reach, v being the
// distance from the middle line; pixels outside the picture are left out. Where the line is bent,
// |v| goes a little beyond the reach.
template <typename Use>
void ForEachStrokePixel(const GrayPicture& picture, const StrokeLine& line, double from, double to,
                        double reach, Use use) {
  const Eigen::Vector2d normal = line.Normal();
  // The coordinate that the stroke runs along more is stepped; the other is a short span.
  const int major = std::abs(line.direction.x()) >= std::abs(line.direction.y()) ? 0 : 1;
  const int minor = 1 - major;
  const int majorSize = major == 0 ? picture.Width() : picture.Height();
  const int minorSize = major == 0 ? picture.Height() : picture.Width();
  const double side = reach * std::abs(normal[major]);
  const double begin = line.At(from)[major];
  const double end = line.At(to)[major];
  const double lowest = std::max(std::min(begin, end) - side, 0.0);
  const double highest = std::min(std::max(begin, end) + side, majorSize - 1.0);
  if (!(lowest <= highest)) {
    return;
  }
  const double span = reach / std::abs(normal[minor]);
  for (int m = static_cast<int>(std::ceil(lowest)); m <= static_cast<int>(highest); ++m) {
    const double along = m - line.origin[major];
    const double u0 = along / line.direction[major];
    const double middle =
        line.origin[minor] + line.direction[minor] * u0 + line.Offset(u0) / normal[minor];
    const double first = std::max(middle - span, 0.0);
    const double last = std::min(middle + span, minorSize - 1.0);
    if (!(first <= last)) {
      continue;
    }
    for (int k = static_cast<int>(std::ceil(first)); k <= static_cast<int>(last); ++k) {
      const double aside = k - line.origin[minor];
      const double u = line.direction[major] * along + line.direction[minor] * aside;
      if (u < from || u >= to) {
        continue;
      }
      const double v = normal[major] * along + normal[minor] * aside - line.Offset(u);
      const int x = major == 0 ? m : k;
      const int y = major == 0 ? k : m;
      use(static_cast<double>(picture.At(x, y)), x, y, u, v);
    }
  }
}

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_STROKE_PIXELS_H_
