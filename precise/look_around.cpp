#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "precise/mark_fit.h"
#include "precise/stroke_pixels.h"

namespace quorvex::precise {
namespace {

constexpr double kBinsPerPixel = 2.0;
constexpr double kFlank = 2.0;         // px between a stroke's edge and what counts as its side
constexpr double kNearestPart = 0.25;  // of an arm: closer in, the other stroke may lie
constexpr double kFarthestPart = 0.9;  // of an arm
constexpr double kLookedAt[] = {0.45, 0.7};  // of an arm, where lines across it are looked at
constexpr double kDarkPart = 0.3;            // of the darkness, that levels on a line must spread
constexpr double kDarkLines = 0.45;          // of the lines; two arms of a mark may be hidden
constexpr double kNearlyBest = 0.9;          // of the best contrast

using Index = std::size_t;

// Mean levels across an arm.
class AcrossLevels {
 public:
  explicit AcrossLevels(double reach)
      : reach_(reach), sums_(static_cast<Index>(2.0 * reach * kBinsPerPixel) + 2, 0.0) {
    counts_ = sums_;
  }

  void Add(double level, double v) {
    const double bin = (v + reach_) * kBinsPerPixel;
    if (bin >= 0.0 && bin < static_cast<double>(sums_.size())) {
      sums_[static_cast<Index>(bin)] += level;
      counts_[static_cast<Index>(bin)] += 1.0;
    }
  }

  void Cumulate() {
    for (Index i = 1; i < sums_.size(); ++i) {
      sums_[i] += sums_[i - 1];
      counts_[i] += counts_[i - 1];
    }
  }

  // Mean between two distances; negative when there are no pixels.
  double Mean(double from, double to) const {
    const Index first = Bin(from);
    const Index last = Bin(to);
    const double count = counts_[last] - counts_[first];
    return count > 0.0 ? (sums_[last] - sums_[first]) / count : -1.0;
  }

 private:
  Index Bin(double v) const {
    const double bin = (v + reach_) * kBinsPerPixel;
    return static_cast<Index>(std::clamp(bin, 0.0, static_cast<double>(sums_.size() - 1)));
  }

  double reach_;
  std::vector<double> sums_;
  std::vector<double> counts_;
};

double WeakerContrast(const AcrossLevels& levels, double offset, double halfWidth) {
  const double near = halfWidth + kFlank;
  const double middle = levels.Mean(offset - halfWidth, offset + halfWidth);
  const double left = levels.Mean(offset - near - 1.5, offset - near);
  const double right = levels.Mean(offset + near, offset + near + 1.5);
  if (middle < 0.0 || left < 0.0 || right < 0.0) {
    return 0.0;
  }
  return std::max(std::min(left, right) - middle, 0.0);
}

double DarkestOffset(const GrayPicture& picture, const MarkFrame& frame, Index stroke,
                     double range) {
  const double halfWidth = std::max(0.5 * frame.width[stroke], 0.75);
  const double reach = range + halfWidth + kFlank + 2.0;
  StrokeLine line;
  line.origin = frame.centre;
  line.direction = frame.direction[stroke];
  line.shape = {0.0, 0.0, frame.bend[stroke][0], frame.bend[stroke][1]};
  std::vector<AcrossLevels> arms(2, AcrossLevels(reach));
  for (Index arm = 0; arm < 2; ++arm) {
    const double length = frame.armLength[stroke][arm];
    const double from =
        std::clamp(range + frame.width[1 - stroke], kNearestPart * length, 0.5 * length);
    const double to = kFarthestPart * length;
    ForEachStrokePixel(picture, line, arm == 0 ? from : -to, arm == 0 ? to : -from, reach,
                       [&](double level, int, int, double, double v) { arms[arm].Add(level, v); });
    arms[arm].Cumulate();
  }
  std::vector<double> scores;
  double bestScore = 0.0;
  const int steps = static_cast<int>(2.0 * range * kBinsPerPixel);
  for (int step = 0; step <= steps; ++step) {
    const double offset = -range + static_cast<double>(step) / kBinsPerPixel;
    scores.push_back(WeakerContrast(arms[0], offset, halfWidth) +
                     WeakerContrast(arms[1], offset, halfWidth));
    bestScore = std::max(bestScore, scores.back());
  }
  if (bestScore <= 0.0) {
    return 0.0;
  }
  // The middle of the offsets about the best that are nearly as good.
  const Index best =
      static_cast<Index>(std::max_element(scores.begin(), scores.end()) - scores.begin());
  Index first = best;
  Index last = best;
  while (first > 0 && scores[first - 1] > kNearlyBest * bestScore) {
    --first;
  }
  while (last + 1 < scores.size() && scores[last + 1] > kNearlyBest * bestScore) {
    ++last;
  }
  return -range + 0.5 * static_cast<double>(first + last) / kBinsPerPixel;
}

// The spread of levels on a line across an arm, on pixels nearest to its points.
double SpreadAcross(const GrayPicture& picture, const Eigen::Vector2d& middle,
                    const Eigen::Vector2d& normal, double reach) {
  int lowest = 255;
  int highest = 0;
  for (int step = 0; step <= static_cast<int>(2.0 * reach); ++step) {
    const double v = step - reach;
    const int x = static_cast<int>(std::lround(middle.x() + v * normal.x()));
    const int y = static_cast<int>(std::lround(middle.y() + v * normal.y()));
    if (picture.Holds(x, y)) {
      lowest = std::min<int>(lowest, picture.At(x, y));
      highest = std::max<int>(highest, picture.At(x, y));
    }
  }
  return highest - lowest;
}

}  // namespace

bool MayHoldMark(const GrayPicture& picture, const MarkFrame& frame, double range,
                 double darkness) {
  int dark = 0;
  int looked = 0;
  for (Index stroke = 0; stroke < 2; ++stroke) {
    const Eigen::Vector2d& along = frame.direction[stroke];
    const Eigen::Vector2d normal(-along.y(), along.x());
    const double reach = range + 0.5 * frame.width[stroke] + kFlank;
    for (Index arm = 0; arm < 2; ++arm) {
      for (const double part : kLookedAt) {
        const double u = (arm == 0 ? part : -part) * frame.armLength[stroke][arm];
        const Eigen::Vector2d middle = frame.centre + u * along;
        if (picture.Holds(static_cast<int>(middle.x()), static_cast<int>(middle.y()))) {
          ++looked;
          dark += SpreadAcross(picture, middle, normal, reach) > kDarkPart * darkness ? 1 : 0;
        }
      }
    }
  }
  return dark >= kDarkLines * looked;
}

MarkFrame LookAround(const GrayPicture& picture, const MarkFrame& frame, double range) {
  MarkFrame moved = frame;
  const double determinant = frame.direction[0].x() * frame.direction[1].y() -
                             frame.direction[0].y() * frame.direction[1].x();
  if (std::abs(determinant) < 0.05) {
    return moved;
  }
  // A shift of stroke 0 across itself is a step along stroke 1, and the other way round.
  const double first = DarkestOffset(picture, frame, 0, range) / determinant;
  const double second = -DarkestOffset(picture, frame, 1, range) / determinant;
  moved.centre += first * frame.direction[1] + second * frame.direction[0];
  return moved;
}

}  // namespace quorvex::precise
