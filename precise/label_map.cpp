#include "precise/label_map.h"

#include <Eigen/LU>
#include <algorithm>
#include <cstddef>
#include <limits>

namespace quorvex::precise {
namespace {

// Weights of the ways to predict: about the inverse of their errors on bent grid lines.
constexpr double kOfFour = 6.0;        // interpolation between two marks on either side
constexpr double kOfTwo = 3.0;         // between one on either side
constexpr double kOfThreeAhead = 3.0;  // quadratic extrapolation
constexpr double kOfTwoAhead = 1.0;    // linear
constexpr double kOfCorner = 1.0;      // the fourth corner of a parallelogram

// Of the smallest step to a neighbour: how far off a prediction of such a weight may be.
constexpr double kCloseWeight = 3.0;
constexpr double kCloseTolerance = 0.14;
constexpr double kLooseTolerance = 0.24;

constexpr int kFewVotes = 2;       // fewer than these are left to the plane
constexpr int kPlaneReach = 3;     // steps
constexpr int kPlaneMarks = 4;     // one more than a plane needs
constexpr double kLeverage = 2.0;  // variance of the prediction over that of a mark

std::uint64_t Key(int row, int column) {
  return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(row)) << 32) |
         static_cast<std::uint32_t>(column);
}

struct Mean {
  int votes = 0;
  double weight = 0.0;
  double heaviest = 0.0;
  Eigen::Vector2d sum = Eigen::Vector2d::Zero();

  void Add(double of, const Eigen::Vector2d& point) {
    ++votes;
    weight += of;
    heaviest = std::max(heaviest, of);
    sum += of * point;
  }
};

}  // namespace

LabelMap::LabelMap(const std::vector<MarkCandidate>& marks,
                   const std::vector<LabelledMark>& labelled)
    : marks_(marks) {
  for (const LabelledMark& mark : labelled) {
    Set(mark);
  }
}

const LabelledMark* LabelMap::Find(int row, int column) const {
  const auto place = places_.find(Key(row, column));
  return place == places_.end() ? nullptr : &place->second;
}

void LabelMap::Set(const LabelledMark& mark) { places_[Key(mark.row, mark.column)] = mark; }

void LabelMap::Remove(const LabelledMark& mark) { places_.erase(Key(mark.row, mark.column)); }

const MarkCandidate* LabelMap::CandidateAt(int row, int column) const {
  const LabelledMark* mark = Find(row, column);
  return mark == nullptr ? nullptr : &marks_[static_cast<std::size_t>(mark->mark)];
}

MarkPrediction LabelMap::Predict(int row, int column) const {
  // By direction, the marks one to three steps away.
  std::array<std::array<const MarkCandidate*, 3>, 4> ahead{};
  for (std::size_t d = 0; d < 4; ++d) {
    for (int k = 0; k < 3; ++k) {
      ahead[d][static_cast<std::size_t>(k)] =
          CandidateAt(row + (k + 1) * kRowStep[d], column + (k + 1) * kColumnStep[d]);
    }
  }
  Mean mean;
  for (std::size_t d = 0; d < 4; ++d) {
    const auto& [a, b, c] = ahead[d];
    if (a != nullptr && b != nullptr && c != nullptr) {
      mean.Add(kOfThreeAhead, 3 * (a->centre - b->centre) + c->centre);
    } else if (a != nullptr && b != nullptr) {
      mean.Add(kOfTwoAhead, 2 * a->centre - b->centre);
    }
    const MarkCandidate* side = ahead[(d + 1) % 4][0];
    const MarkCandidate* corner = CandidateAt(row + kRowStep[d] + kRowStep[(d + 1) % 4],
                                              column + kColumnStep[d] + kColumnStep[(d + 1) % 4]);
    if (a != nullptr && side != nullptr && corner != nullptr) {
      mean.Add(kOfCorner, a->centre + side->centre - corner->centre);
    }
    const auto& [e, f, g] = ahead[(d + 2) % 4];
    if (d < 2 && a != nullptr && e != nullptr) {
      const bool isFour = b != nullptr && f != nullptr;
      const Eigen::Vector2d middle = (a->centre + e->centre) / 2;
      mean.Add(isFour ? kOfFour : kOfTwo,
               isFour ? (8 * middle - b->centre - f->centre) / 6 : middle);
    }
  }
  if (mean.votes < kFewVotes) {
    return PredictFromPlane(row, column);
  }
  MarkPrediction prediction;
  prediction.votes = mean.votes;
  prediction.centre = mean.sum / mean.weight;
  double step = std::numeric_limits<double>::infinity();
  for (const auto& direction : ahead) {
    if (direction[0] != nullptr) {
      step = std::min(step, (direction[0]->centre - prediction.centre).norm());
    }
  }
  prediction.tolerance = step * (mean.heaviest >= kCloseWeight ? kCloseTolerance : kLooseTolerance);
  return prediction;
}

MarkPrediction LabelMap::PredictFromPlane(int row, int column) const {
  Eigen::Matrix3d normal = Eigen::Matrix3d::Zero();
  Eigen::Matrix<double, 3, 2> right = Eigen::Matrix<double, 3, 2>::Zero();
  int count = 0;
  for (int dr = -kPlaneReach; dr <= kPlaneReach; ++dr) {
    for (int dc = -kPlaneReach; dc <= kPlaneReach; ++dc) {
      const MarkCandidate* mark = dr == 0 && dc == 0 ? nullptr : CandidateAt(row + dr, column + dc);
      if (mark != nullptr) {
        // Grid lines are bent: nearer marks say more.
        const double weight = 1.0 / (dr * dr + dc * dc);
        const Eigen::Vector3d terms(1.0, dr, dc);
        normal += weight * terms * terms.transpose();
        right += weight * terms * mark->centre.transpose();
        ++count;
      }
    }
  }
  MarkPrediction prediction;
  const double determinant = normal.determinant();
  if (count < kPlaneMarks || !(determinant > 1e-6)) {
    return prediction;
  }
  const Eigen::Matrix3d inverse = normal.inverse();
  const Eigen::Matrix<double, 3, 2> plane = inverse * right;
  if (inverse(0, 0) > kLeverage) {
    return prediction;
  }
  prediction.votes = count;
  prediction.centre = plane.row(0).transpose();
  prediction.tolerance = kLooseTolerance * std::min(plane.row(1).norm(), plane.row(2).norm());
  return prediction;
}

PredictedArms LabelMap::PredictArms(int row, int column) const {
  PredictedArms arms;
  arms.directions.fill(Eigen::Vector2d::Zero());
  for (int dr = -1; dr <= 1; ++dr) {
    for (int dc = -1; dc <= 1; ++dc) {
      const LabelledMark* label = dr == 0 && dc == 0 ? nullptr : Find(row + dr, column + dc);
      if (label == nullptr) {
        continue;
      }
      ++arms.votes;
      const MarkCandidate& mark = marks_[static_cast<std::size_t>(label->mark)];
      double contrast = 0.0;
      for (std::size_t k = 0; k < 4; ++k) {
        const MarkArm& arm = mark.arms[k];
        arms.directions[(k + static_cast<std::size_t>(label->turn)) % 4] += arm.direction;
        contrast += arm.contrast / mark.ArmsSeen();
        arms.length = std::max(arms.length, arm.length);
      }
      arms.contrast += contrast;
    }
  }
  for (Eigen::Vector2d& direction : arms.directions) {
    direction.normalize();
  }
  arms.contrast /= std::max(1, arms.votes);
  return arms;
}

}  // namespace quorvex::precise
