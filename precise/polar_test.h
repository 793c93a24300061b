// Whether dark strokes cross at a place: the darkness along 48 directions around it.
//
// A direction's response is the mean, over radii of 4 to 11 pixels of the level, of how much darker
// it is than the weaker of its two sides, 3 pixels away. Peaks of the response are arms.
#ifndef QUORVEX_PRECISE_POLAR_TEST_H_
#define QUORVEX_PRECISE_POLAR_TEST_H_

#include <Eigen/Core>
#include <array>

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

constexpr int kNearestRadius =
    4;  // px of the level; nearer by, strokes of other directions interfere
constexpr int kFarthestRadius = 11;  // px of the level

// A quick look at two circles: false where fewer than three directions are dark, so that the test
// would find two arms at most. True near the rim of the level.
bool MayHaveThreeArms(const PyramidLevel& level, const Eigen::Vector2d& point, double noise);

// `point` in pixels of the level, `noise` in grey levels of the picture.
PolarArms FindPolarArms(const PyramidLevel& level, const Eigen::Vector2d& point, double noise);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_POLAR_TEST_H_
