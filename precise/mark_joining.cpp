#include "precise/mark_joining.h"

#include <Eigen/LU>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>

#include "precise/label_map.h"
#include "precise/point_grid.h"

namespace quorvex::precise {
namespace {

constexpr double kDegree = 3.14159265358979323846 / 180;
constexpr double kLikeDirection = 16 * kDegree;  // between an arm and those of its neighbours
constexpr double kLikeContrast = 2.5;            // stronger over the weaker
constexpr double kLongest = 1.6;  // over the longest arm around; shorter ones may be hidden or cut
constexpr int kReach = 2;         // steps around a labelled mark, over one that is absent
constexpr int kLeastVotes = 2;    // predictions that a place needs
constexpr int kStepsReach = 4;    // steps to marks that are asked
constexpr double kStepError = 0.4;     // steps
constexpr double kCell = 32.0;         // px
constexpr double kSlackOfLink = 1.5;   // tolerances, of a prediction that one link agrees with
constexpr double kSlackOfLinks = 2.0;  // that two links agree with
constexpr double kMostMisfit = 1.8;   // tolerances, of a mark that stays; a wrong label is four off
constexpr double kMostDropped = 0.1;  // of the marks; where more contradict, none is to be trusted

// How the arms of a candidate must be turned to be those that the neighbours predict; -1 when they
// differ.
int MatchingTurn(const MarkCandidate& mark, const PredictedArms& predicted) {
  for (int turn = 0; turn < 4; ++turn) {
    bool isLike = true;
    for (std::size_t k = 0; k < 4 && isLike; ++k) {
      const MarkArm& arm = mark.arms[k];
      const Eigen::Vector2d& direction =
          predicted.directions[(k + static_cast<std::size_t>(turn)) % 4];
      isLike = !arm.isSeen || (arm.direction.dot(direction) > std::cos(kLikeDirection) &&
                               arm.length < kLongest * predicted.length &&
                               arm.contrast < kLikeContrast * predicted.contrast &&
                               arm.contrast > predicted.contrast / kLikeContrast);
    }
    if (isLike) {
      return turn;
    }
  }
  return -1;
}

class Joining {
 public:
  Joining(const std::vector<MarkCandidate>& marks, const MarkLinks& links, int width, int height,
          const std::vector<LabelledMark>& labelled)
      : marks_(marks),
        links_(links),
        map_(marks, labelled),
        isUsed_(marks.size()),
        labels_(marks.size()),
        grid_(width, height, kCell) {
    for (const LabelledMark& mark : labelled) {
      Use(mark);
    }
    for (std::size_t i = 0; i < marks.size(); ++i) {
      if (!isUsed_[i]) {
        grid_.Add(marks[i].centre, static_cast<int>(i));
      }
    }
  }

  // Labels the candidate at a place, where there is one.
  bool Join(int row, int column, LabelledMark* joined) {
    if (map_.Find(row, column) != nullptr) {
      return false;
    }
    const MarkPrediction prediction = map_.Predict(row, column);
    if (prediction.votes < kLeastVotes) {
      return false;
    }
    int nearest = kNoMark;
    double distance = prediction.tolerance;
    grid_.VisitNear(prediction.centre, prediction.tolerance, [&](int index) {
      const double d = (marks_[static_cast<std::size_t>(index)].centre - prediction.centre).norm();
      if (!isUsed_[static_cast<std::size_t>(index)] && d < distance) {
        distance = d;
        nearest = index;
      }
    });
    if (nearest == kNoMark) {
      return false;
    }
    const int turn =
        MatchingTurn(marks_[static_cast<std::size_t>(nearest)], map_.PredictArms(row, column));
    if (turn < 0 || !AreStepsRight({nearest, row, column, turn})) {
      return false;
    }
    *joined = {nearest, row, column, turn};
    Use(*joined);
    return true;
  }

  // Labels what an arm of a labelled mark is linked to.
  bool JoinLinked(const LabelledMark& from, std::size_t arm, LabelledMark* joined) {
    const int other = links_.links[static_cast<std::size_t>(from.mark)][arm].mark;
    if (other == kNoMark || isUsed_[static_cast<std::size_t>(other)]) {
      return false;
    }
    const int agreeing = Proposal(static_cast<std::size_t>(other), joined);
    if (agreeing == 0 || map_.Find(joined->row, joined->column) != nullptr) {
      return false;
    }
    const MarkPrediction prediction = map_.Predict(joined->row, joined->column);
    const double off = (marks_[static_cast<std::size_t>(other)].centre - prediction.centre).norm();
    const double slack = agreeing > 1 ? kSlackOfLinks : kSlackOfLink;
    if (prediction.votes > 0 ? off > slack * prediction.tolerance : agreeing < 2) {
      return false;
    }
    Use(*joined);
    return true;
  }

 private:
  void Use(const LabelledMark& mark) {
    map_.Set(mark);
    isUsed_[static_cast<std::size_t>(mark.mark)] = true;
    labels_[static_cast<std::size_t>(mark.mark)] = mark;
  }

  // Whether the nearest labelled marks are as many steps away as their labels say, a step measured
  // by the arms of both.
  bool AreStepsRight(const LabelledMark& mark) const {
    for (int reach = 1; reach <= kStepsReach; ++reach) {
      bool isAny = false;
      for (int dr = -reach; dr <= reach; ++dr) {
        const int dc = reach - std::abs(dr);
        for (const int side : {-dc, dc}) {
          const LabelledMark* other = map_.Find(mark.row + dr, mark.column + side);
          isAny = isAny || other != nullptr;
          if (other != nullptr && !IsApart(mark, *other, side, dr)) {
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

  bool IsApart(const LabelledMark& from, const LabelledMark& to, int columns, int rows) const {
    const Eigen::Matrix2d steps = (StepsOf(from) + StepsOf(to)) / 2;
    const double determinant = steps.determinant();
    if (!(std::fabs(determinant) > 0)) {
      return false;
    }
    const Eigen::Vector2d way = marks_[static_cast<std::size_t>(to.mark)].centre -
                                marks_[static_cast<std::size_t>(from.mark)].centre;
    const double column = Cross(way, steps.col(1)) / determinant;
    const double row = Cross(steps.col(0), way) / determinant;
    return std::fabs(column - columns) < kStepError && std::fabs(row - rows) < kStepError;
  }

  // One step along +column and one along +row, px, as the arms of a mark tell.
  Eigen::Matrix2d StepsOf(const LabelledMark& label) const {
    const MarkCandidate& mark = marks_[static_cast<std::size_t>(label.mark)];
    Eigen::Matrix2d steps;
    for (std::size_t k = 0; k < 2; ++k) {
      const std::size_t at = (k + 4 - static_cast<std::size_t>(label.turn)) % 4;
      const MarkArm& ahead = mark.arms[at];
      const MarkArm& back = mark.arms[(at + 2) % 4];
      const double seen = (ahead.isSeen ? 1 : 0) + (back.isSeen ? 1 : 0);
      const double length = (ahead.length + back.length) / seen;
      steps.col(static_cast<Eigen::Index>(k)) =
          (ahead.direction - back.direction).normalized() * (2 * length * links_.stepRatio);
    }
    return steps;
  }

  // How many labelled marks that a mark is linked to give it the same label; 0 when they
  // contradict.
  int Proposal(std::size_t mark, LabelledMark* proposal) const {
    int agreeing = 0;
    for (std::size_t k = 0; k < 4; ++k) {
      const ArmLink& link = links_.links[mark][k];
      if (link.mark == kNoMark || !isUsed_[static_cast<std::size_t>(link.mark)]) {
        continue;
      }
      const LabelledMark label = LabelBeyond(labels_[static_cast<std::size_t>(link.mark)], link.arm,
                                             {static_cast<int>(mark), static_cast<int>(k)});
      if (agreeing > 0 && (label.row != proposal->row || label.column != proposal->column ||
                           label.turn != proposal->turn)) {
        return 0;
      }
      *proposal = label;
      ++agreeing;
    }
    return agreeing;
  }

  const std::vector<MarkCandidate>& marks_;
  const MarkLinks& links_;
  LabelMap map_;
  std::vector<bool> isUsed_;
  std::vector<LabelledMark> labels_;  // by candidate, where it is used
  PointGrid grid_;
};

// How far a mark is off what its neighbours predict, in tolerances; 0 where they predict nothing.
double Misfit(const std::vector<MarkCandidate>& marks, const LabelMap& map,
              const LabelledMark& mark) {
  const MarkPrediction prediction = map.Predict(mark.row, mark.column);
  if (prediction.votes < kLeastVotes) {
    return 0.0;
  }
  return (marks[static_cast<std::size_t>(mark.mark)].centre - prediction.centre).norm() /
         prediction.tolerance;
}

}  // namespace

void JoinPredictedMarks(const std::vector<MarkCandidate>& marks, const MarkLinks& links, int width,
                        int height, std::vector<LabelledMark>& labelled) {
  Joining joining(marks, links, width, height, labelled);
  LabelledMark joined;
  for (std::size_t next = 0; next < labelled.size(); ++next) {
    const LabelledMark from = labelled[next];
    for (std::size_t k = 0; k < 4; ++k) {
      if (joining.JoinLinked(from, k, &joined)) {
        labelled.push_back(joined);
      }
    }
    for (int dr = -kReach; dr <= kReach; ++dr) {
      for (int dc = -kReach; dc <= kReach; ++dc) {
        if (joining.Join(from.row + dr, from.column + dc, &joined)) {
          labelled.push_back(joined);
        }
      }
    }
  }
}

void DropUnpredictedMarks(const std::vector<MarkCandidate>& marks,
                          std::vector<LabelledMark>& labelled) {
  LabelMap map(marks, labelled);
  const std::size_t most =
      static_cast<std::size_t>(kMostDropped * static_cast<double>(labelled.size()));
  for (std::size_t dropped = 0;; ++dropped) {
    std::size_t worst = 0;
    double largest = 0.0;
    for (std::size_t k = 0; k < labelled.size(); ++k) {
      const double misfit = Misfit(marks, map, labelled[k]);
      if (misfit > largest) {
        largest = misfit;
        worst = k;
      }
    }
    if (largest <= kMostMisfit) {
      return;
    }
    if (dropped >= most) {
      labelled.clear();
      return;
    }
    map.Remove(labelled[worst]);
    labelled.erase(labelled.begin() + static_cast<std::ptrdiff_t>(worst));
  }
}

}  // namespace quorvex::precise
