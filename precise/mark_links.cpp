#include "precise/mark_links.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "precise/median.h"
#include "precise/point_grid.h"

namespace quorvex::precise {
namespace {

constexpr double kDegree = 3.14159265358979323846 / 180;
constexpr double kAhead = 16 * kDegree;      // between an arm and the way to the other mark
constexpr double kBentApart = 11 * kDegree;  // sum of both; a bow turns them in opposite senses
constexpr double kLikeLength = 2.5;    // longer arm over the shorter one; 1.7 in the widest views
constexpr double kLikeContrast = 2.5;  // stronger over the weaker one
constexpr double kNearest = 0.5;   // of an arm's length: a trace may run on through the next mark
constexpr double kFarthest = 6.0;  // of an arm's length; arms are a fifth of the pitch at least
constexpr double kCell = 48.0;     // px
constexpr int kMostSeen = 400;     // marks that an arm looks at; real boards show a tenth of that
constexpr double kRunThrough =
    0.62;                          // of the distance: a longer trace went over the gap between arms
constexpr double kTouching = 1.0;  // ratio of arms that meet
constexpr double kBinGrowth = 1.08;     // ratios in the same bin differ by less
constexpr int kBins = 32;               // from kTouching to 11
constexpr double kWellPopulated = 0.3;  // of the fullest three bins
constexpr double kStepSlack = 1.28;     // either way from the step's ratio; two steps have twice

struct Found {
  ArmLink link;
  double distance = std::numeric_limits<double>::infinity();
};

double Likeness(double a, double b) { return a > b ? a / b : b / a; }

// The angle from a to b, both unit vectors.
double Turn(const Eigen::Vector2d& a, const Eigen::Vector2d& b) {
  return std::atan2(Cross(a, b), a.dot(b));
}

// The arm of `other` that points back along an arm of a mark `way` away; -1 when there is none.
int ArmPointingBack(const MarkArm& arm, const MarkCandidate& other, const Eigen::Vector2d& way,
                    double forward) {
  for (int k = 0; k < 4; ++k) {
    const MarkArm& back = other.arms[static_cast<std::size_t>(k)];
    if (!back.isSeen || -way.dot(back.direction) < std::cos(kAhead)) {
      continue;
    }
    const double backward = Turn(-way, back.direction);
    if (std::fabs(forward + backward) < kBentApart &&
        Likeness(arm.length, back.length) < kLikeLength &&
        Likeness(arm.contrast, back.contrast) < kLikeContrast) {
      return k;
    }
  }
  return -1;
}

Found FindAhead(const std::vector<MarkCandidate>& marks, const PointGrid& grid, int from,
                const MarkArm& arm) {
  Found found;
  const Eigen::Vector2d centre = marks[static_cast<std::size_t>(from)].centre;
  int seen = 0;
  const auto look = [&](int index) {
    const MarkCandidate& other = marks[static_cast<std::size_t>(index)];
    const Eigen::Vector2d difference = other.centre - centre;
    const double distance = difference.norm();
    if (index == from || ++seen > kMostSeen || distance >= found.distance ||
        distance < kNearest * arm.length ||
        arm.direction.dot(difference) < std::cos(kAhead) * distance) {
      return;
    }
    const Eigen::Vector2d way = difference / distance;
    const int back = ArmPointingBack(arm, other, way, Turn(way, arm.direction));
    if (back >= 0) {
      found = {{index, back}, distance};
    }
  };
  // Nearest first: squares along the arm, each around the next stretch, until one holds a mark.
  const double farthest = kFarthest * arm.length;
  for (double reach = kNearest * arm.length; reach < farthest && found.link.mark == kNoMark;) {
    const double next = std::min(1.5 * reach + kCell / 2, farthest);
    const double middle = (reach + next) / 2;
    const double half = (next - reach) / 2 + next * std::sin(kAhead);
    grid.VisitNear(centre + middle * arm.direction, half, look);
    // A mark beyond this stretch may have a nearer rival in the next one.
    if (found.link.mark != kNoMark && found.distance > next) {
      grid.VisitNear(centre + found.distance * arm.direction, found.distance * std::sin(kAhead),
                     look);
    }
    reach = next;
  }
  return found;
}

double StepRatio(const MarkArm& a, const MarkArm& b, double distance) {
  if (std::max(a.length, b.length) > kRunThrough * distance) {
    return kTouching;
  }
  return std::max(kTouching, distance / (a.length + b.length));
}

// The smallest ratio that many links have; 0 without links.
double SmallestPopulated(const std::vector<double>& ratios) {
  std::array<int, kBins + 2> bins{};
  for (const double ratio : ratios) {
    const double bin = std::log(ratio / kTouching) / std::log(kBinGrowth);
    ++bins[static_cast<std::size_t>(std::min(bin, kBins - 1.0)) + 1];
  }
  const auto around = [&bins](std::size_t k) { return bins[k - 1] + bins[k] + bins[k + 1]; };
  int fullest = 0;
  for (std::size_t k = 1; k <= kBins; ++k) {
    fullest = std::max(fullest, around(k));
  }
  std::size_t first = 1;
  while (first < kBins && around(first) < kWellPopulated * fullest) {
    ++first;
  }
  // The median of what lies in the first well-populated bins and a little beyond.
  const double lowest = kTouching * std::pow(kBinGrowth, static_cast<double>(first) - 2);
  std::vector<double> near;
  for (const double ratio : ratios) {
    if (ratio >= lowest && ratio < lowest * kStepSlack * kStepSlack) {
      near.push_back(ratio);
    }
  }
  return MedianOf(near);
}

}  // namespace

MarkLinks FindMarkLinks(const std::vector<MarkCandidate>& marks, int width, int height) {
  PointGrid grid(width, height, kCell);
  for (std::size_t i = 0; i < marks.size(); ++i) {
    grid.Add(marks[i].centre, static_cast<int>(i));
  }
  std::vector<std::array<Found, 4>> ahead(marks.size());
  for (std::size_t i = 0; i < marks.size(); ++i) {
    for (std::size_t k = 0; k < 4; ++k) {
      if (marks[i].arms[k].isSeen) {
        ahead[i][k] = FindAhead(marks, grid, static_cast<int>(i), marks[i].arms[k]);
      }
    }
  }
  const auto isMutual = [&ahead](std::size_t i, std::size_t k) {
    const ArmLink& link = ahead[i][k].link;
    if (link.mark == kNoMark) {
      return false;
    }
    const ArmLink& back =
        ahead[static_cast<std::size_t>(link.mark)][static_cast<std::size_t>(link.arm)].link;
    return back.mark == static_cast<int>(i) && back.arm == static_cast<int>(k);
  };
  const auto ratioOf = [&](std::size_t i, std::size_t k) {
    const ArmLink& link = ahead[i][k].link;
    const MarkCandidate& other = marks[static_cast<std::size_t>(link.mark)];
    return StepRatio(marks[i].arms[k], other.arms[static_cast<std::size_t>(link.arm)],
                     ahead[i][k].distance);
  };
  std::vector<double> ratios;
  for (std::size_t i = 0; i < marks.size(); ++i) {
    for (std::size_t k = 0; k < 4; ++k) {
      if (isMutual(i, k)) {
        ratios.push_back(ratioOf(i, k));
      }
    }
  }
  MarkLinks result;
  result.links.resize(marks.size());
  result.stepRatio = SmallestPopulated(ratios);
  for (std::size_t i = 0; i < marks.size(); ++i) {
    for (std::size_t k = 0; k < 4; ++k) {
      if (isMutual(i, k) && Likeness(ratioOf(i, k), result.stepRatio) < kStepSlack) {
        result.links[i][k] = ahead[i][k].link;
      }
    }
  }
  return result;
}

}  // namespace quorvex::precise
