// Follows an arm outwards from the middle of a mark to its end, along the middles of cuts across
// it.
#ifndef QUORVEX_PRECISE_ARM_TRACE_H_
#define QUORVEX_PRECISE_ARM_TRACE_H_

#include <Eigen/Core>

#include "precise/mark_candidate.h"
#include "precise/pyramid.h"

namespace quorvex::precise {

struct ArmStart {
  Eigen::Vector2d centre = Eigen::Vector2d::Zero();     // px of the picture
  Eigen::Vector2d direction = Eigen::Vector2d::Zero();  // unit vector
  double nearest =
      0.0;  // px of the picture from the centre, where the other stroke does not interfere
  double farthest = 0.0;  // px of the picture; the arm's contrast is measured between these
};

// `level` is one at which the arm is thin; `spacing` of the cuts' samples and the length of a step
// are px of the picture. An arm that ends before `farthest` is measured as far as it goes. Not seen
// when no cut shows it. `noise` in grey levels of the picture. No arm is followed beyond 170 px:
// pitches end at 330.
MarkArm TraceArm(const PyramidLevel& level, const ArmStart& start, double spacing, double noise);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_ARM_TRACE_H_
