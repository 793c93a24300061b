#include "precise/mark_acceptance.h"

#include <cmath>

namespace quorvex::precise {
namespace {

constexpr double kLeastDarkness = 0.35;     // of the neighbours': strokes fade that far at rims
constexpr double kMostDarkness = 2.5;       // of the neighbours'
constexpr double kWellLeastDarkness = 0.6;  // of the neighbours', where two arms must do
constexpr double kWellMostDarkness = 1.6;
constexpr double kLeastCosine = 0.995;    // 5.7 degrees between predicted and fitted stroke
constexpr double kLargestSigma = 0.4;     // px; a worse place is no measurement
constexpr double kLargestScatter = 40.0;  // of the blocks' squares over their variances
constexpr double kScatterFloor = 0.15;    // px between blocks, allowed where noise is low
constexpr double kInPicture = 0.5;        // of an arm

// A fit may end outside although the place that it began from lies inside.
bool LiesOnPicture(const GrayPicture& picture, const Eigen::Vector2d& point) {
  return point.x() >= -0.5 && point.y() >= -0.5 && point.x() <= picture.Width() - 0.5 &&
         point.y() <= picture.Height() - 0.5;
}

}  // namespace

std::array<std::array<bool, 2>, 2> ArmsInPicture(const GrayPicture& picture,
                                                 const MarkFrame& frame) {
  std::array<std::array<bool, 2>, 2> arms = {};
  for (std::size_t stroke = 0; stroke < 2; ++stroke) {
    for (std::size_t arm = 0; arm < 2; ++arm) {
      const double length = kInPicture * frame.armLength[stroke][arm];
      const Eigen::Vector2d tip =
          frame.centre + (arm == 0 ? length : -length) * frame.direction[stroke];
      arms[stroke][arm] = tip.x() >= 0.0 && tip.y() >= 0.0 && tip.x() <= picture.Width() - 1.0 &&
                          tip.y() <= picture.Height() - 1.0;
    }
  }
  return arms;
}

bool IsMark(const GrayPicture& picture, const MarkFrame& frame, const MarkFit& fit,
            const Expectation& expected) {
  if (!fit.isMeasured || !fit.SeesBothStrokes() || !LiesOnPicture(picture, fit.centre)) {
    return false;
  }
  const double least = expected.isWellPredicted ? kWellLeastDarkness : kLeastDarkness;
  const double most = expected.isWellPredicted ? kWellMostDarkness : kMostDarkness;
  if (expected.darkness > 0.0 &&
      (fit.darkness < least * expected.darkness || fit.darkness > most * expected.darkness)) {
    return false;
  }
  if ((fit.centre - frame.centre).norm() > expected.tolerance ||
      fit.covariance.trace() > kLargestSigma * kLargestSigma) {
    return false;
  }
  for (std::size_t stroke = 0; stroke < 2; ++stroke) {
    if (fit.direction[stroke].dot(frame.direction[stroke]) < kLeastCosine) {
      return false;
    }
  }
  const double blockVariance = fit.covariance.trace() * std::max(fit.freedom, 1.0) / 2.0;
  if (fit.squares > kLargestScatter * fit.freedom &&
      fit.squares / fit.freedom * blockVariance > kScatterFloor * kScatterFloor) {
    return false;
  }
  int seen = 0;
  int held = 0;
  const std::array<std::array<bool, 2>, 2> inPicture = ArmsInPicture(picture, frame);
  for (std::size_t stroke = 0; stroke < 2; ++stroke) {
    for (std::size_t arm = 0; arm < 2; ++arm) {
      seen += fit.arms[stroke][arm].isSeen ? 1 : 0;
      held += inPicture[stroke][arm] || fit.arms[stroke][arm].isSeen ? 1 : 0;
    }
  }
  return seen >= 3 || (seen == 2 && (held == 2 || expected.isWellPredicted));
}

}  // namespace quorvex::precise
