#include "precise/arm_crossing.h"

#include <cmath>
#include <cstddef>

#include "precise/mark_candidate.h"
#include "precise/stroke_section.h"

namespace quorvex::precise {
namespace {

constexpr double kFarthest = 4.0;     // px of the level between point and crossing
constexpr double kLeastDepth = 0.3;   // of the arm's response; sections that are paler say nothing
constexpr double kLeastSections = 4;  // of a stroke
constexpr double kLeastSine = 0.3;    // of the angle between the strokes; 17 degrees

struct Line {
  bool isFound = false;
  Eigen::Vector2d point = Eigen::Vector2d::Zero();
  Eigen::Vector2d direction = Eigen::Vector2d::Zero();
};

// The straight line u = a + b t through the sections of one stroke, t along its direction, u across
// it.
struct LineSums {
  double count = 0;
  double t = 0;
  double tt = 0;
  double u = 0;
  double tu = 0;
};

void AddArm(const PyramidLevel& level, const Eigen::Vector2d& point,
            const Eigen::Vector2d& direction, const PolarArm& arm, LineSums& sums) {
  const Eigen::Vector2d along(std::cos(arm.angle), std::sin(arm.angle));
  const Eigen::Vector2d normal(-along.y(), along.x());
  for (int radius = kNearestRadius; radius <= kFarthestRadius; ++radius) {
    const Eigen::Vector2d at = along * radius;
    const StrokeSection section = CutStroke(level, point + at, normal, 1.0);
    if (!section.isInside || section.depth < kLeastDepth * arm.response) {
      continue;
    }
    const Eigen::Vector2d middle = at + section.offset * normal;
    const double t = middle.dot(direction);
    const double u = Cross(direction, middle);
    sums.count += 1;
    sums.t += t;
    sums.tt += t * t;
    sums.u += u;
    sums.tu += t * u;
  }
}

Line FitStroke(const PyramidLevel& level, const Eigen::Vector2d& point, const PolarArm& first,
               const PolarArm& second) {
  Line line;
  // Along the first arm, and against the second one.
  Eigen::Vector2d direction = Eigen::Vector2d::Zero();
  if (first.isSeen) {
    direction += Eigen::Vector2d(std::cos(first.angle), std::sin(first.angle));
  }
  if (second.isSeen) {
    direction -= Eigen::Vector2d(std::cos(second.angle), std::sin(second.angle));
  }
  direction.normalize();
  LineSums sums;
  for (const PolarArm* arm : {&first, &second}) {
    if (arm->isSeen) {
      AddArm(level, point, direction, *arm, sums);
    }
  }
  const double determinant = sums.count * sums.tt - sums.t * sums.t;
  if (sums.count < kLeastSections || !(determinant > 0)) {
    return line;
  }
  const double slope = (sums.count * sums.tu - sums.t * sums.u) / determinant;
  const double shift = (sums.u - slope * sums.t) / sums.count;
  const Eigen::Vector2d normal(-direction.y(), direction.x());
  line.isFound = true;
  line.point = shift * normal;
  line.direction = (direction + slope * normal).normalized();
  return line;
}

}  // namespace

std::optional<Eigen::Vector2d> FindArmCrossing(const PyramidLevel& level,
                                               const Eigen::Vector2d& point,
                                               const PolarArms& arms) {
  const Line a = FitStroke(level, point, arms.arms[0], arms.arms[2]);
  const Line b = FitStroke(level, point, arms.arms[1], arms.arms[3]);
  const double sine = Cross(a.direction, b.direction);
  if (!a.isFound || !b.isFound || std::fabs(sine) < kLeastSine) {
    return std::nullopt;
  }
  const Eigen::Vector2d crossing =
      a.point + a.direction * (Cross(b.point - a.point, b.direction) / sine);
  if (crossing.norm() > kFarthest) {
    return std::nullopt;
  }
  return point + crossing;
}

}  // namespace quorvex::precise
