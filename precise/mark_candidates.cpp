#include "precise/mark_candidates.h"

#include <cmath>
#include <cstddef>
#include <optional>

#include "precise/arm_crossing.h"
#include "precise/arm_trace.h"
#include "precise/hessian_peaks.h"
#include "precise/point_grid.h"
#include "precise/polar_circles.h"
#include "precise/polar_test.h"

namespace quorvex::precise {
namespace {

constexpr std::size_t kMostPeaksHalf = 8000;     // bounds the time on pictures full of crossings
constexpr std::size_t kMostPeaksQuarter = 2500;  // likewise
constexpr int kRounds = 3;                       // of testing and moving onto the crossing
constexpr double kSettled = 0.25;         // px of the level; a smaller move needs no further test
constexpr double kSamePlace = 4.0;        // px; strokes of two marks are farther apart
constexpr std::size_t kLinedMarks = 400;  // that tell paper with lines from a board
constexpr double kLinedShare = 0.85;      // of the arms
constexpr double kLinedDepth = 0.85;      // of the contrast, at an arm's palest place
constexpr double kCell = 16.0;            // px

struct Tested {
  Eigen::Vector2d point = Eigen::Vector2d::Zero();  // px of the level
  PolarArms arms;
};

// Whether what is not seen of a mark with two arms lies outside of the level.
bool AreMissingArmsCut(const PyramidLevel& level, const Tested& tested) {
  for (const PolarArm& arm : tested.arms.arms) {
    // The test of an arm needs its sides, too.
    const double radius = kFarthestRadius + 3.0;
    const double x = tested.point.x() + radius * std::cos(arm.angle);
    const double y = tested.point.y() + radius * std::sin(arm.angle);
    if (!arm.isSeen && x > 1 && y > 1 && x < level.width - 2 && y < level.height - 2) {
      return false;
    }
  }
  return true;
}

// Tests at a point and moves onto the crossing until it stays.
std::optional<Tested> TestAt(const PyramidLevel& level, const Eigen::Vector2d& point,
                             double noise) {
  Tested tested;
  tested.point = point;
  if (!MayHaveThreeArms(level, point, LeastResponse(level, noise))) {
    return std::nullopt;
  }
  for (int round = 0; round < kRounds; ++round) {
    tested.arms = FindPolarArms(level, tested.point, noise);
    if (tested.arms.seen == 0) {
      return std::nullopt;
    }
    const std::optional<Eigen::Vector2d> crossing =
        FindArmCrossing(level, tested.point, tested.arms);
    if (!crossing) {
      return std::nullopt;
    }
    const double move = (*crossing - tested.point).norm();
    tested.point = *crossing;
    if (move < kSettled) {
      break;
    }
  }
  if (tested.arms.seen == 2 && !AreMissingArmsCut(level, tested)) {
    return std::nullopt;
  }
  return tested;
}

MarkCandidate TraceArms(const Pyramid& pyramid, const PyramidLevel& level, const Tested& tested,
                        double noise) {
  MarkCandidate mark;
  mark.centre = level.ToPicture(tested.point);
  mark.level = level.index;
  // The ends of arms are sharper one level below.
  const PyramidLevel& finer = pyramid[static_cast<std::size_t>(std::max(0, level.index - 1))];
  for (std::size_t k = 0; k < 4; ++k) {
    const PolarArm& arm = tested.arms.arms[k];
    mark.arms[k].direction = Eigen::Vector2d(std::cos(arm.angle), std::sin(arm.angle));
    if (arm.isSeen) {
      const ArmStart start{mark.centre, mark.arms[k].direction, kNearestRadius * level.Scale(),
                           kFarthestRadius * level.Scale()};
      mark.arms[k] = TraceArm(finer, start, level.Scale(), noise);
    }
  }
  return mark;
}

// The marks found so far, none closer to another than kSamePlace.
class Collection {
 public:
  explicit Collection(const PyramidLevel& full) : grid_(full.width, full.height, kCell) {}

  bool IsTaken(const Eigen::Vector2d& centre, double reach) const {
    bool isTaken = false;
    grid_.VisitNear(centre, reach, [&](int index) {
      const MarkCandidate& mark = marks_[static_cast<std::size_t>(index)];
      isTaken = isTaken || (mark.centre - centre).norm() < reach;
    });
    return isTaken;
  }

  void Add(const MarkCandidate& mark) {
    bool areStrokesSeen = true;
    for (std::size_t k = 0; k < 2; ++k) {
      areStrokesSeen = areStrokesSeen && (mark.arms[k].isSeen || mark.arms[k + 2].isSeen);
    }
    if (areStrokesSeen && !IsTaken(mark.centre, kSamePlace)) {
      grid_.Add(mark.centre, static_cast<int>(marks_.size()));
      marks_.push_back(mark);
      for (const MarkArm& arm : mark.arms) {
        arms_ += arm.isSeen ? 1 : 0;
        crossed_ += arm.isSeen && arm.isCrossed && arm.palest > kLinedDepth ? 1 : 0;
      }
    }
  }

  // Whether many marks are there and hardly an arm ends before the next stroke: paper with lines,
  // of which no more needs to be known.
  bool IsLinedPaper() const {
    return marks_.size() >= kLinedMarks &&
           static_cast<double>(crossed_) > kLinedShare * static_cast<double>(arms_);
  }

  std::vector<MarkCandidate> Marks() && { return std::move(marks_); }

 private:
  PointGrid grid_;
  std::vector<MarkCandidate> marks_;
  int arms_ = 0;
  int crossed_ = 0;
};

// A peak of the half size: there, or, when its arms are too short for that, at full size.
void LookAtHalf(const Pyramid& pyramid, const HessianPeak& peak, double noise,
                Collection& collection) {
  const PyramidLevel& full = pyramid[0];
  const PyramidLevel& half = pyramid[1];
  const Eigen::Vector2d point(peak.x, peak.y);
  if (collection.IsTaken(half.ToPicture(point), kSamePlace)) {
    return;
  }
  const std::optional<Tested> tested = TestAt(half, point, noise);
  if (tested && tested->arms.seen == 4) {
    collection.Add(TraceArms(pyramid, half, *tested, noise));
    return;
  }
  const std::optional<Tested> atFull = TestAt(full, full.FromPicture(half.ToPicture(point)), noise);
  if (atFull && (!tested || atFull->arms.seen > tested->arms.seen)) {
    collection.Add(TraceArms(pyramid, full, *atFull, noise));
  } else if (tested) {
    collection.Add(TraceArms(pyramid, half, *tested, noise));
  }
}

}  // namespace

std::vector<MarkCandidate> FindMarkCandidates(const Pyramid& pyramid, double noise,
                                              bool stopsAtLines) {
  Collection collection(pyramid[0]);
  for (const HessianPeak& peak : FindHessianPeaks(pyramid[1], noise, kMostPeaksHalf)) {
    if (stopsAtLines && collection.IsLinedPaper()) {
      return std::move(collection).Marks();
    }
    LookAtHalf(pyramid, peak, noise, collection);
  }
  const PyramidLevel& quarter = pyramid[2];
  for (const HessianPeak& peak : FindHessianPeaks(quarter, noise, kMostPeaksQuarter)) {
    const Eigen::Vector2d point(peak.x, peak.y);
    if (collection.IsTaken(quarter.ToPicture(point), 2 * quarter.Scale())) {
      continue;
    }
    if (const std::optional<Tested> tested = TestAt(quarter, point, noise)) {
      collection.Add(TraceArms(pyramid, quarter, *tested, noise));
    }
  }
  return std::move(collection).Marks();
}

}  // namespace quorvex::precise
