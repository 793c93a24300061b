#include "precise/label_map.h"

#include <Eigen/Cholesky>
#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

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

constexpr int kFewVotes = 2;       // fewer than these are left to a surface
constexpr int kSurfaceReach = 4;   // steps
constexpr double kLeverage = 3.0;  // variance of the prediction over that of a mark next to it
constexpr double kOpen = 1e-6;     // of the largest pivot: marks in a row leave a surface open

std::uint64_t Key(int row, int column) {
  return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(row)) << 32) |
         static_cast<std::uint32_t>(column);
}

// The weighted median of points, coordinate by coordinate, so that a single wrong neighbour moves
// it little.
class Votes {
 public:
  void Add(double weight, const Eigen::Vector2d& point) {
    points_[count_] = {weight, point};
    ++count_;
    heaviest_ = std::max(heaviest_, weight);
  }

  int Count() const { return static_cast<int>(count_); }
  double Heaviest() const { return heaviest_; }
  Eigen::Vector2d Median() const { return {MedianOf(0), MedianOf(1)}; }

 private:
  struct Vote {
    double weight;
    Eigen::Vector2d point;
  };

  // The mean of the two values at which half of the weight is reached, from below and from above.
  double MedianOf(Eigen::Index coordinate) const {
    std::array<std::pair<double, double>, kMostVotes> values;
    double all = 0.0;
    for (std::size_t k = 0; k < count_; ++k) {
      values[k] = {points_[k].point(coordinate), points_[k].weight};
      all += points_[k].weight;
    }
    std::sort(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(count_));
    double below = 0.0;
    std::size_t low = 0;
    while (low + 1 < count_ && below + values[low].second < all / 2) {
      below += values[low].second;
      ++low;
    }
    const bool isBetween = below + values[low].second == all / 2 && low + 1 < count_;
    return isBetween ? (values[low].first + values[low + 1].first) / 2 : values[low].first;
  }

  static constexpr std::size_t kMostVotes = 4 + 4 + 2;  // ahead, corners, between
  std::array<Vote, kMostVotes> points_;
  std::size_t count_ = 0;
  double heaviest_ = 0.0;
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
  Votes votes;
  for (std::size_t d = 0; d < 4; ++d) {
    const auto& [a, b, c] = ahead[d];
    if (a != nullptr && b != nullptr && c != nullptr) {
      votes.Add(kOfThreeAhead, 3 * (a->centre - b->centre) + c->centre);
    } else if (a != nullptr && b != nullptr) {
      votes.Add(kOfTwoAhead, 2 * a->centre - b->centre);
    }
    const MarkCandidate* side = ahead[(d + 1) % 4][0];
    const MarkCandidate* corner = CandidateAt(row + kRowStep[d] + kRowStep[(d + 1) % 4],
                                              column + kColumnStep[d] + kColumnStep[(d + 1) % 4]);
    if (a != nullptr && side != nullptr && corner != nullptr) {
      votes.Add(kOfCorner, a->centre + side->centre - corner->centre);
    }
    const auto& [e, f, g] = ahead[(d + 2) % 4];
    if (d < 2 && a != nullptr && e != nullptr) {
      const bool isFour = b != nullptr && f != nullptr;
      const Eigen::Vector2d middle = (a->centre + e->centre) / 2;
      votes.Add(isFour ? kOfFour : kOfTwo,
                isFour ? (8 * middle - b->centre - f->centre) / 6 : middle);
    }
  }
  if (votes.Count() < kFewVotes) {
    return PredictFromSurface(row, column);
  }
  MarkPrediction prediction;
  prediction.votes = votes.Count();
  prediction.centre = votes.Median();
  double step = std::numeric_limits<double>::infinity();
  for (const auto& direction : ahead) {
    if (direction[0] != nullptr) {
      step = std::min(step, (direction[0]->centre - prediction.centre).norm());
    }
  }
  prediction.step = step;
  prediction.tolerance =
      step * (votes.Heaviest() >= kCloseWeight ? kCloseTolerance : kLooseTolerance);
  return prediction;
}

// A surface through marks around a place, at the place itself; terms 1, dr, dc and, of six, the
// squares and the product. Nearer marks weigh more, since grid lines are bent.
template <int kTerms>
struct Surface {
  Eigen::Matrix<double, kTerms, kTerms> normal = Eigen::Matrix<double, kTerms, kTerms>::Zero();
  Eigen::Matrix<double, kTerms, 2> right = Eigen::Matrix<double, kTerms, 2>::Zero();
  int count = 0;

  void Add(int dr, int dc, const Eigen::Vector2d& point) {
    const double weight = 1.0 / (dr * dr + dc * dc);
    const double all[6] = {1.0,
                           static_cast<double>(dr),
                           static_cast<double>(dc),
                           static_cast<double>(dr * dr),
                           static_cast<double>(dr * dc),
                           static_cast<double>(dc * dc)};
    const Eigen::Map<const Eigen::Matrix<double, kTerms, 1>> terms(all);
    normal += weight * terms * terms.transpose();
    right += weight * terms * point.transpose();
    ++count;
  }

  // No votes where the marks leave the surface open at the place.
  MarkPrediction Predict(double tolerance) const {
    MarkPrediction prediction;
    if (count <= kTerms + kTerms / 3) {
      return prediction;
    }
    const Eigen::LDLT<Eigen::Matrix<double, kTerms, kTerms>> solver(normal);
    if (!(solver.vectorD().minCoeff() > kOpen * solver.vectorD().maxCoeff())) {
      return prediction;
    }
    const Eigen::Matrix<double, kTerms, 1> unit = Eigen::Matrix<double, kTerms, 1>::Unit(0);
    if (!(solver.solve(unit)(0) < kLeverage)) {
      return prediction;
    }
    const Eigen::Matrix<double, kTerms, 2> surface = solver.solve(right);
    prediction.votes = count;
    prediction.centre = surface.row(0).transpose();
    prediction.step = std::min(surface.row(1).norm(), surface.row(2).norm());
    prediction.tolerance = tolerance * prediction.step;
    return prediction;
  }
};

MarkPrediction LabelMap::PredictFromSurface(int row, int column) const {
  Surface<3> plane;
  Surface<6> bent;
  for (int dr = -kSurfaceReach; dr <= kSurfaceReach; ++dr) {
    for (int dc = -kSurfaceReach; dc <= kSurfaceReach; ++dc) {
      const MarkCandidate* mark = dr == 0 && dc == 0 ? nullptr : CandidateAt(row + dr, column + dc);
      if (mark != nullptr) {
        plane.Add(dr, dc, mark->centre);
        bent.Add(dr, dc, mark->centre);
      }
    }
  }
  const MarkPrediction prediction = bent.Predict(kLooseTolerance);
  return prediction.votes > 0 ? prediction : plane.Predict(kLooseTolerance);
}

PredictedArms LabelMap::PredictArms(int row, int column) const {
  PredictedArms arms;
  for (int reach = 1; reach <= kSurfaceReach && arms.votes == 0; ++reach) {
    arms = ArmsWithin(row, column, reach);
  }
  return arms;
}

PredictedArms LabelMap::ArmsWithin(int row, int column, int reach) const {
  PredictedArms arms;
  arms.directions.fill(Eigen::Vector2d::Zero());
  for (int dr = -reach; dr <= reach; ++dr) {
    for (int dc = -reach; dc <= reach; ++dc) {
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
