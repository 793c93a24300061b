#include "precise/label_check.h"

#include <Eigen/LU>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <functional>
#include <utility>

namespace quorvex::precise {
namespace {

constexpr int kLeastVotes = 2;        // predictions that a judgement needs
constexpr int kStepsReach = 4;        // steps to marks that are asked
constexpr double kStepError = 0.4;    // steps
constexpr double kMostMisfit = 0.45;  // steps, of a mark that stays; a wrong label is one off
constexpr int kMisleading = 4;        // steps: as far as a mark takes part in predictions
constexpr int kMostRounds = 12;  // of dropping marks; more would not end the contradictions either
constexpr double kMostDropped = 0.1;  // of the marks; where more contradict, none is to be trusted

// One step along +column and one along +row, px, as the arms of a mark tell.
Eigen::Matrix2d StepsOf(const std::vector<MarkCandidate>& marks, double stepRatio,
                        const LabelledMark& label) {
  const MarkCandidate& mark = marks[static_cast<std::size_t>(label.mark)];
  Eigen::Matrix2d steps;
  for (std::size_t k = 0; k < 2; ++k) {
    const std::size_t at = (k + 4 - static_cast<std::size_t>(label.turn)) % 4;
    const MarkArm& ahead = mark.arms[at];
    const MarkArm& back = mark.arms[(at + 2) % 4];
    const double seen = (ahead.isSeen ? 1 : 0) + (back.isSeen ? 1 : 0);
    const double length = (ahead.length + back.length) / seen;
    steps.col(static_cast<Eigen::Index>(k)) =
        (ahead.direction - back.direction).normalized() * (2 * length * stepRatio);
  }
  return steps;
}

// Whether two marks are so many steps apart.
bool IsApart(const std::vector<MarkCandidate>& marks, double stepRatio, const LabelledMark& from,
             const LabelledMark& to) {
  const Eigen::Matrix2d steps =
      (StepsOf(marks, stepRatio, from) + StepsOf(marks, stepRatio, to)) / 2;
  const double determinant = steps.determinant();
  if (!(std::fabs(determinant) > 0)) {
    return false;
  }
  const Eigen::Vector2d way = marks[static_cast<std::size_t>(to.mark)].centre -
                              marks[static_cast<std::size_t>(from.mark)].centre;
  const double column = Cross(way, steps.col(1)) / determinant;
  const double row = Cross(steps.col(0), way) / determinant;
  return std::fabs(column - (to.column - from.column)) < kStepError &&
         std::fabs(row - (to.row - from.row)) < kStepError;
}

// How far a mark is off what its neighbours predict, in steps; 0 where they predict nothing.
double Misfit(const std::vector<MarkCandidate>& marks, const LabelMap& map,
              const LabelledMark& mark) {
  const MarkPrediction prediction = map.Predict(mark.row, mark.column);
  if (prediction.votes < kLeastVotes) {
    return 0.0;
  }
  return (marks[static_cast<std::size_t>(mark.mark)].centre - prediction.centre).norm() /
         prediction.step;
}

}  // namespace

bool AreStepsRight(const std::vector<MarkCandidate>& marks, double stepRatio, const LabelMap& map,
                   const LabelledMark& mark) {
  for (int reach = 1; reach <= kStepsReach; ++reach) {
    bool isAny = false;
    for (int dr = -reach; dr <= reach; ++dr) {
      const int dc = reach - std::abs(dr);
      for (const int side : {-dc, dc}) {
        const LabelledMark* other = map.Find(mark.row + dr, mark.column + side);
        isAny = isAny || other != nullptr;
        if (other != nullptr && !IsApart(marks, stepRatio, mark, *other)) {
          return false;
        }
      }
    }
    if (isAny) {
      return true;
    }
  }
  return false;
}

void DropUnpredictedMarks(const std::vector<MarkCandidate>& marks, double stepRatio,
                          std::vector<LabelledMark>& labelled) {
  LabelMap map(marks, labelled);
  const double least = (1 - kMostDropped) * static_cast<double>(labelled.size());
  for (int round = 0; round < kMostRounds; ++round) {
    std::vector<std::pair<double, std::size_t>> misfits;
    for (std::size_t k = 0; k < labelled.size(); ++k) {
      const double misfit = Misfit(marks, map, labelled[k]);
      if (misfit > kMostMisfit && !AreStepsRight(marks, stepRatio, map, labelled[k])) {
        misfits.emplace_back(-misfit, k);
      }
    }
    if (misfits.empty()) {
      return;
    }
    // The worst first; what stands near to a mark that is taken off may fit without it.
    std::sort(misfits.begin(), misfits.end());
    std::vector<std::size_t> dropped;
    for (const auto& [misfit, k] : misfits) {
      const bool isNear =
          std::any_of(dropped.begin(), dropped.end(), [&, k = k](std::size_t other) {
            return std::abs(labelled[other].row - labelled[k].row) <= kMisleading &&
                   std::abs(labelled[other].column - labelled[k].column) <= kMisleading;
          });
      if (!isNear) {
        dropped.push_back(k);
      }
      if (static_cast<double>(labelled.size() - dropped.size()) < least) {
        labelled.clear();
        return;
      }
    }
    std::sort(dropped.begin(), dropped.end(), std::greater<std::size_t>());
    for (const std::size_t k : dropped) {
      map.Remove(labelled[k]);
      labelled.erase(labelled.begin() + static_cast<std::ptrdiff_t>(k));
    }
  }
  labelled.clear();
}

}  // namespace quorvex::precise
