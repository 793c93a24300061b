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
  if (marks_.empty() || !(variance > 0.0)) {
    marks_.clear();
    return;
  }
  std::stable_partition(marks_.begin(), marks_.end(),
                        [](const Deviation& mark) { return mark.row != 0 || mark.column != 0; });
  const Eigen::Index count = static_cast<Eigen::Index>(marks_.size());
  Eigen::MatrixXd kernel(count, count);
  Eigen::MatrixX2d away(count, 2);
  const std::array<double, kDistances> factors = FactorsOfWholeDistances();
  Eigen::Index i = 0;
  for (const Deviation& first : marks_) {
    for (Eigen::Index j = 0; j <= i; ++j) {
      const Deviation& second = marks_[static_cast<std::size_t>(j)];
      kernel(i, j) = variance * FactorAt(factors, std::abs(first.row - second.row)) *
                     FactorAt(factors, std::abs(first.column - second.column));
    }
    kernel(i, i) += first.variance;
    away.row(i) = first.away.transpose();
    ++i;
  }
  solver_.compute(kernel);  // looks at the lower triangle alone
  weights_ = solver_.solve(away);
}

bool BoardField::HoldsMiddle() const {
  return !marks_.empty() && marks_.back().row == 0 && marks_.back().column == 0;
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

BoardField::Estimate BoardField::AtMiddle() const {
  Estimate estimate;
  estimate.variance = variance_;
  if (marks_.empty()) {
    return estimate;
  }
  if (HoldsMiddle()) {
    // The kernel of the middle is the last row of the matrix without the measurement's variance.
    const Eigen::Index last = weights_.rows() - 1;
    const double own = marks_.back().variance;
    const double diagonal = solver_.matrixLLT()(last, last);
    estimate.away = marks_.back().away - own * weights_.row(last).transpose();
    estimate.variance = std::max(own - own * own / (diagonal * diagonal), 0.0);
    return estimate;
  }
  const std::array<double, kDistances> factors = FactorsOfWholeDistances();
  Eigen::VectorXd kernel(weights_.rows());
  Eigen::Index i = 0;
  for (const Deviation& mark : marks_) {
    kernel[i] = variance_ * FactorAt(factors, std::abs(mark.row)) *
                FactorAt(factors, std::abs(mark.column));
    ++i;
  }
  estimate.away = weights_.transpose() * kernel;
  estimate.variance = std::max(variance_ - kernel.dot(solver_.solve(kernel)), 0.0);
  return estimate;
}

// Without solving again: the last diagonal entry of the matrix's inverse is that of the triangular
// factor, inverted and squared.
BoardField::Estimate BoardField::AtMiddleByOthers() const {
  if (!HoldsMiddle()) {
    return AtMiddle();
  }
  const Eigen::Index last = weights_.rows() - 1;
  const double diagonal = solver_.matrixLLT()(last, last);
  Estimate estimate;
  estimate.away = marks_.back().away - diagonal * diagonal * weights_.row(last).transpose();
  estimate.variance = std::max(diagonal * diagonal - marks_.back().variance, 0.0);
  return estimate;
}

}  // namespace quorvex::precise
