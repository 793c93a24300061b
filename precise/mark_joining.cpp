#include "precise/mark_joining.h"

#include <cmath>
#include <cstddef>

#include "precise/label_check.h"
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
constexpr double kCell = 32.0;    // px
constexpr double kSlackOfLink = 1.5;   // tolerances, of a prediction that one link agrees with
constexpr double kSlackOfLinks = 2.0;  // that two links agree with
constexpr double kSlackOfSteps = 0.5;  // steps; where the arms say so, too

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
        ++unused_;
      }
    }
  }

  // Labels the candidate at a place, where there is one.
  bool Join(int row, int column, LabelledMark* joined) {
    if (unused_ == 0 || map_.Find(row, column) != nullptr) {
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
    if (turn < 0 || !AreStepsRight(marks_, links_.stepRatio, map_, {nearest, row, column, turn})) {
      return false;
    }
    *joined = {nearest, row, column, turn};
    Use(*joined);
    --unused_;
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
    const bool isPredicted =
        prediction.votes > 0 && (off < slack * prediction.tolerance ||
                                 (off < kSlackOfSteps * prediction.step &&
                                  AreStepsRight(marks_, links_.stepRatio, map_, *joined)));
    if (!isPredicted && (prediction.votes > 0 || agreeing < 2)) {
      return false;
    }
    Use(*joined);
    --unused_;
    return true;
  }

 private:
  void Use(const LabelledMark& mark) {
    map_.Set(mark);
    isUsed_[static_cast<std::size_t>(mark.mark)] = true;
    labels_[static_cast<std::size_t>(mark.mark)] = mark;
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
  std::size_t unused_ = 0;
  std::vector<LabelledMark> labels_;  // by candidate, where it is used
  PointGrid grid_;
};

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

}  // namespace quorvex::precise
