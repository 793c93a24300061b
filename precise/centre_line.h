// The middle line of a stroke from the shifts of its blocks: a cubic, weighted by the blocks'
// information, robust against blocks that something else has moved, held near the bend that is
// expected of it.
#ifndef QUORVEX_PRECISE_CENTRE_LINE_H_
#define QUORVEX_PRECISE_CENTRE_LINE_H_

#include <Eigen/Core>
#include <array>
#include <vector>

#include "precise/block_fit.h"

namespace quorvex::precise {

// How far the quadratic and the cubic term may be from what is expected: standard deviations of the
// line's place at the distance `length` from the crossing, px. 0 holds a term where it is.
struct BendPrior {
  std::array<double, 2> expected = {};  // 1 / px and 1 / px^2
  std::array<double, 2> sigma = {};     // px at `length`
  double length = 1.0;                  // px
};

struct CentreLine {
  bool isFitted = false;
  std::array<double, 4> shift = {};  // polynomial in u that the expected line is to be moved by, px
  Eigen::Matrix4d covariance = Eigen::Matrix4d::Zero();  // of `shift`
  double squares = 0.0;  // of the used blocks' distances from the line, over their variances
  double freedom = 0.0;  // of them

  double Variance(double u) const;  // px^2, of the line's place at u
};

// noise: standard deviation in grey levels. `current` is the shape that the shifts count from.
// Needs two blocks or more.
CentreLine FitCentreLine(const std::vector<Block>& blocks, double noise,
                         const std::array<double, 4>& current, const BendPrior& prior);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_CENTRE_LINE_H_
