#include "precise/board_field.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace quorvex::precise {
namespace {

constexpr double kKernelLength = 3.0;  // pitches over which what is off changes
constexpr int kDistances = 2 * kFieldWindow + 1;

// The kernel is the product of one factor for the columns and one for the rows.
double Factor(double distance) {
  return std::exp(-0.5 * distance * distance / (kKernelLength * kKernelLength));
}

std::array<double, kDistances> FactorsOfWholeDistances() {
  std::array<double, kDistances> factors{};
  double distance = 0.0;
  for (double& factor : factors) {
    factor = Factor(distance);
    distance += 1.0;
  }
  return factors;
}

double FactorAt(const std::array<double, kDistances>& factors, int index) {
  return factors[static_cast<std::size_t>(index)];
}

// For the offsets -kFieldWindow to kFieldWindow.
std::array<double, kDistances> FactorsAround(double place) {
  std::array<double, kDistances> factors{};
  double offset = -kFieldWindow;
  for (double& factor : factors) {
    factor = Factor(place - offset);
    offset += 1.0;
  }
  return factors;
}

}  // namespace

BoardField::BoardField(std::vector<Deviation> marks, double variance)
    : marks_(std::move(marks)), variance_(variance) {
  middle_.variance = byOthers_.variance = variance;
  if (marks_.empty() || !(variance > 0.0)) {
    marks_.clear();
    return;
  }
  std::stable_partition(marks_.begin(), marks_.end(),
                        [](const Deviation& mark) { return mark.row != 0 || mark.column != 0; });
  const Solver solver = Solve();
  if (marks_.back().row == 0 && marks_.back().column == 0) {
    EstimateWithOwnMark(solver);
  } else {
    EstimateWithoutOwnMark(solver);
  }
}

// Sets the weights.
BoardField::Solver BoardField::Solve() {
  const Eigen::Index count = static_cast<Eigen::Index>(marks_.size());
  Eigen::MatrixXd kernel(count, count);
  Eigen::MatrixX2d away(count, 2);
  const std::array<double, kDistances> factors = FactorsOfWholeDistances();
  Eigen::Index i = 0;
  for (const Deviation& first : marks_) {
    for (Eigen::Index j = 0; j <= i; ++j) {
      const Deviation& second = marks_[static_cast<std::size_t>(j)];
      kernel(i, j) = variance_ * FactorAt(factors, std::abs(first.row - second.row)) *
                     FactorAt(factors, std::abs(first.column - second.column));
    }
    kernel(i, i) += first.variance;
    away.row(i) = first.away.transpose();
    ++i;
  }
  Solver solver(kernel);  // looks at the lower triangle alone
  weights_ = solver.solve(away);
  return solver;
}

// The kernel of the middle is the last row of the matrix, without the measurement's variance; and
// the last diagonal entry of the matrix's inverse is that of the triangular factor, inverted and
// squared. So nothing needs solving again.
void BoardField::EstimateWithOwnMark(const Solver& solver) {
  const Eigen::Index last = weights_.rows() - 1;
  const Eigen::Vector2d weight = weights_.row(last).transpose();
  const Deviation& own = marks_.back();
  const double diagonal = solver.matrixLLT()(last, last);
  const double square = diagonal * diagonal;
  middle_.away = own.away - own.variance * weight;
  middle_.variance = std::max(own.variance - own.variance * own.variance / square, 0.0);
  byOthers_.away = own.away - square * weight;
  byOthers_.variance = std::max(square - own.variance, 0.0);
}

void BoardField::EstimateWithoutOwnMark(const Solver& solver) {
  const std::array<double, kDistances> factors = FactorsOfWholeDistances();
  Eigen::VectorXd kernel(weights_.rows());
  Eigen::Index i = 0;
  for (const Deviation& mark : marks_) {
    kernel[i] = variance_ * FactorAt(factors, std::abs(mark.row)) *
                FactorAt(factors, std::abs(mark.column));
    ++i;
  }
  middle_.away = weights_.transpose() * kernel;
  middle_.variance = std::max(variance_ - kernel.dot(solver.solve(kernel)), 0.0);
  byOthers_ = middle_;
}

Eigen::Vector2d BoardField::At(double column, double row) const {
  Eigen::Vector2d sum = Eigen::Vector2d::Zero();
  if (marks_.empty()) {
    return sum;
  }
  const std::array<double, kDistances> ofRows = FactorsAround(row);
  const std::array<double, kDistances> ofColumns = FactorsAround(column);
  Eigen::Index i = 0;
  for (const Deviation& mark : marks_) {
    const double kernel = variance_ * FactorAt(ofRows, mark.row + kFieldWindow) *
                          FactorAt(ofColumns, mark.column + kFieldWindow);
    sum += kernel * weights_.row(i).transpose();
    ++i;
  }
  return sum;
}

}  // namespace quorvex::precise
