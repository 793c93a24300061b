// Where the two strokes of a mark cross: the crossing of straight lines through the middles of
// their arms.
#ifndef QUORVEX_PRECISE_ARM_CROSSING_H_
#define QUORVEX_PRECISE_ARM_CROSSING_H_

#include <Eigen/Core>
#include <optional>

#include "precise/polar_test.h"
#include "precise/pyramid.h"

namespace quorvex::precise {

// `point` in pixels of the level, as in the polar test that gave the arms, and so is the crossing.
// Nothing where the arms cannot be measured, or cross too far away from the point for it to be
// their middle.
std::optional<Eigen::Vector2d> FindArmCrossing(const PyramidLevel& level,
                                               const Eigen::Vector2d& point, const PolarArms& arms);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_ARM_CROSSING_H_
