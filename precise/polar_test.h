// Whether dark strokes cross at a place: peaks of the responses around it (PolarResponses) are
// arms, and two strokes of them that are steep enough to one another are a crossing.
#ifndef QUORVEX_PRECISE_POLAR_TEST_H_
#define QUORVEX_PRECISE_POLAR_TEST_H_

#include <Eigen/Core>
#include <array>

#include "precise/polar_circles.h"
#include "precise/pyramid.h"

namespace quorvex::precise {

// An arm at a place; angles in radians, clockwise from +x as the picture is seen.
struct PolarArm {
  bool isSeen = false;
  double angle = 0.0;     // of a missing arm: opposite to the other one of its stroke
  double response = 0.0;  // grey levels of the level
};

// Arms k and k + 2 belong to one stroke, the order is clockwise.
struct PolarArms {
  int seen = 0;  // 0 where no strokes cross; else 2 (one of either stroke), 3 or 4
  std::array<PolarArm, 4> arms;
};

// What an arm needs, grey levels; `noise` in grey levels of the picture.
double LeastResponse(const PyramidLevel& level, double noise);

// `point` in pixels of the level, `noise` in grey levels of the picture.
PolarArms FindPolarArms(const PyramidLevel& level, const Eigen::Vector2d& point, double noise);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_POLAR_TEST_H_
