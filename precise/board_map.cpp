#include "precise/board_map.h"

#include <Eigen/Cholesky>
#include <Eigen/LU>
#include <algorithm>
#include <cmath>

namespace quorvex::precise {
namespace {

constexpr int kWindow = 3;               // labels on each side that a place is smoothed from
constexpr double kKernelLength = 3.0;    // pitches over which what is off changes
constexpr double kLeastVariance = 1e-6;  // px^2; marks are not measured better than 0.001 px
constexpr int kBendSamples = 4;          // places on each arm that its bend is taken from
constexpr double kBendReach = 0.45;      // pitches, the farthest of them

double Kernel(const Eigen::Vector2d& difference) {
  return std::exp(-0.5 * difference.squaredNorm() / (kKernelLength * kKernelLength));
}

double Median(std::vector<double>& values) {
  const std::ptrdiff_t middle = static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), values.begin() + middle, values.end());
  return values[static_cast<std::size_t>(middle)];
}

// The bend of the curve through points: least squares of u^1 to u^3 on the offset.
std::array<double, 2> BendOf(const std::vector<Eigen::Vector2d>& points,
                             const Eigen::Vector2d& origin, const Eigen::Vector2d& direction) {
  const Eigen::Vector2d normal(-direction.y(), direction.x());
  double length = 0.0;
  for (const Eigen::Vector2d& point : points) {
    length = std::max(length, std::abs(direction.dot(point - origin)));
  }
  Eigen::Matrix3d squares = Eigen::Matrix3d::Identity() * 1e-12;
  Eigen::Vector3d right = Eigen::Vector3d::Zero();
  for (const Eigen::Vector2d& point : points) {
    const double t = direction.dot(point - origin) / length;
    const Eigen::Vector3d powers(t, t * t, t * t * t);
    squares += powers * powers.transpose();
    right += powers * normal.dot(point - origin);
  }
  const Eigen::Vector3d solution = squares.ldlt().solve(right);
  return {solution[1] / (length * length), solution[2] / (length * length * length)};
}

}  // namespace

// What is off around a label, as a function of the label.
class BoardMap::Field {
 public:
  Field(const std::vector<Eigen::Vector2d>& labels, const std::vector<Residual>& residuals,
        double variance)
      : labels_(labels), variance_(variance) {
    const Eigen::Index count = static_cast<Eigen::Index>(labels.size());
    if (count == 0 || !(variance > 0.0)) {
      labels_.clear();
      return;
    }
    Eigen::MatrixXd kernel(count, count);
    Eigen::MatrixX2d away(count, 2);
    for (Eigen::Index i = 0; i < count; ++i) {
      const std::size_t first = static_cast<std::size_t>(i);
      for (Eigen::Index j = 0; j <= i; ++j) {
        const std::size_t second = static_cast<std::size_t>(j);
        kernel(i, j) = kernel(j, i) = variance * Kernel(labels[first] - labels[second]);
      }
      kernel(i, i) += residuals[first].variance;
      away.row(i) = residuals[first].away.transpose();
    }
    solver_.compute(kernel);
    weights_ = solver_.solve(away);
  }

  Eigen::Vector2d At(const Eigen::Vector2d& label) const {
    Eigen::Vector2d sum = Eigen::Vector2d::Zero();
    for (std::size_t i = 0; i < labels_.size(); ++i) {
      const double kernel = variance_ * Kernel(label - labels_[i]);
      sum += kernel * weights_.row(static_cast<Eigen::Index>(i)).transpose();
    }
    return sum;
  }

  double Variance(const Eigen::Vector2d& label) const {
    if (labels_.empty()) {
      return variance_;
    }
    Eigen::VectorXd kernel(static_cast<Eigen::Index>(labels_.size()));
    for (std::size_t i = 0; i < labels_.size(); ++i) {
      kernel[static_cast<Eigen::Index>(i)] = variance_ * Kernel(label - labels_[i]);
    }
    return std::max(variance_ - kernel.dot(solver_.solve(kernel)), 0.0);
  }

 private:
  std::vector<Eigen::Vector2d> labels_;
  double variance_;
  Eigen::LLT<Eigen::MatrixXd> solver_;
  Eigen::MatrixX2d weights_;
};

BoardMap::BoardMap(const std::vector<GridMark>& marks, const CameraFit& camera) : camera_(camera) {
  std::vector<double> squares;
  std::vector<double> variances;
  for (const GridMark& mark : marks) {
    Eigen::Vector2d pixel;
    if (!mark.fit.isMeasured || !camera.model.Project({mark.column, mark.row}, pixel)) {
      continue;
    }
    Residual residual;
    residual.away = mark.fit.centre - pixel;
    residual.variance = std::max(0.5 * mark.fit.covariance.trace(), kLeastVariance);
    residuals_[{mark.row, mark.column}] = residual;
    squares.push_back(residual.away.squaredNorm());
    variances.push_back(residual.variance);
  }
  if (!squares.empty()) {
    // For Gaussian errors the median of the squared distance is 1.386 variances of a coordinate.
    const double excess = Median(squares) / 1.3863 - Median(variances);
    fieldSigma_ = std::sqrt(std::max(excess, 0.0));
  }
}

BoardMap::Field BoardMap::FieldAround(int row, int column, bool withoutItself) const {
  std::vector<Eigen::Vector2d> labels;
  std::vector<Residual> residuals;
  for (int r = row - kWindow; r <= row + kWindow; ++r) {
    for (int c = column - kWindow; c <= column + kWindow; ++c) {
      const auto found = residuals_.find({r, c});
      if (found != residuals_.end() && !(withoutItself && r == row && c == column)) {
        labels.emplace_back(c, r);
        residuals.push_back(found->second);
      }
    }
  }
  return Field(labels, residuals, fieldSigma_ * fieldSigma_);
}

Predicted BoardMap::At(int row, int column, bool withoutItself) const {
  Predicted predicted;
  const Eigen::Vector2d label(column, row);
  CameraModel::Jacobian jacobian;
  predicted.isSeen = camera_.model.Project(label, predicted.pixel, &jacobian);
  if (predicted.isSeen) {
    const Field field = FieldAround(row, column, withoutItself);
    predicted.pixel += field.At(label);
    predicted.covariance = jacobian * camera_.covariance * jacobian.transpose() +
                           field.Variance(label) * Eigen::Matrix2d::Identity();
  }
  return predicted;
}

bool BoardMap::Frame(int row, int column, const BoardFacts& facts, MarkFrame& frame) const {
  const Field field = FieldAround(row, column, false);
  const Eigen::Vector2d middle(column, row);
  Eigen::Vector2d pixel;
  Eigen::Matrix2d byLabel;
  if (!camera_.model.Project(middle, pixel, nullptr, &byLabel)) {
    return false;
  }
  frame.centre = pixel + field.At(middle);
  for (int stroke = 0; stroke < 2; ++stroke) {
    const std::size_t s = static_cast<std::size_t>(stroke);
    const Eigen::Vector2d step = stroke == 0 ? Eigen::Vector2d::UnitX() : Eigen::Vector2d::UnitY();
    const Eigen::Vector2d aside = stroke == 0 ? Eigen::Vector2d::UnitY() : Eigen::Vector2d::UnitX();
    // The step on the board that leads straight across the stroke in the picture.
    const Eigen::Vector2d across =
        aside - step * (byLabel.col(stroke).dot(byLabel.col(1 - stroke)) /
                        byLabel.col(stroke).squaredNorm());
    frame.direction[s] = byLabel.col(stroke).normalized();
    const Eigen::Vector2d normal(-frame.direction[s].y(), frame.direction[s].x());
    frame.width[s] = facts.strokeWidth[s] * std::abs(normal.dot(byLabel.col(1 - stroke)));
    std::vector<Eigen::Vector2d> points;
    for (int i = -kBendSamples; i <= kBendSamples; ++i) {
      const Eigen::Vector2d label = middle + step * (kBendReach * i / kBendSamples);
      if (i != 0 && camera_.model.Project(label, pixel)) {
        points.push_back(pixel + field.At(label));
      }
    }
    Eigen::Vector2d ends[2];
    Eigen::Vector2d flanks[2];
    for (int arm = 0; arm < 2; ++arm) {
      const double sign = arm == 0 ? 1.0 : -1.0;
      if (!camera_.model.Project(middle + sign * facts.armEnd * step, ends[arm]) ||
          !camera_.model.Project(middle + sign * 0.5 * facts.strokeWidth[s] * across,
                                 flanks[arm])) {
        return false;
      }
      frame.armLength[s][static_cast<std::size_t>(arm)] =
          std::abs(frame.direction[s].dot(ends[arm] - frame.centre));
    }
    frame.bend[s] = BendOf(points, frame.centre, frame.direction[s]);
    camera_.model.Project(middle, pixel);
    frame.aside[s] = normal.dot(0.5 * (flanks[0] + flanks[1]) - pixel);
  }
  return true;
}

}  // namespace quorvex::precise
