// The darkness around a place, in 48 directions, from eight circles around it.
//
// A direction's response is the mean, over radii of 4 to 11 pixels of the level, of how much darker
// it is than the weaker of its two sides, 3 pixels away.
#ifndef QUORVEX_PRECISE_POLAR_CIRCLES_H_
#define QUORVEX_PRECISE_POLAR_CIRCLES_H_

#include <Eigen/Core>
#include <array>

#include "precise/pyramid.h"

namespace quorvex::precise {

constexpr int kAngles = 48;  // directions, 7.5 degrees apart, clockwise from +x
constexpr int kNearestRadius =
    4;  // px of the level; nearer by, strokes of other directions interfere
constexpr int kFarthestRadius = 11;  // px of the level

// A sum of responses over a response in grey levels.
constexpr int kResponseUnit = (kFarthestRadius - kNearestRadius + 1) * kLevelUnit;

struct PolarResponses {
  std::array<int, kAngles> sums{};  // kResponseUnit to a grey level; 0 where something is outside
  std::array<bool, kAngles> isDark{};  // at most radii
};

// `point` in pixels of the level.
PolarResponses MeasureResponses(const PyramidLevel& level, const Eigen::Vector2d& point);

// A quick look at two circles: false where fewer than three directions are dark, so that the test
// would find two arms at most. `leastResponse` (grey levels) is what an arm needs. True near the
// level's rim.
bool MayHaveThreeArms(const PyramidLevel& level, const Eigen::Vector2d& point,
                      double leastResponse);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_POLAR_CIRCLES_H_
