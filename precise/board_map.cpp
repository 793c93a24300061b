#include "precise/board_map.h"
#include "precise/median.h"

#include <Eigen/Cholesky>
#include <algorithm>
#include <cmath>
#include <utility>

namespace quorvex::precise {
namespace {

constexpr double kLeastVariance = 1e-6;  // px^2; marks are not measured better than 0.001 px
constexpr int kBendSamples = 4;          // places on each arm that its bend is taken from
constexpr double kBendReach = 0.45;      // pitches, the farthest of them

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
    const double excess = MedianOf(squares) / 1.3863 - MedianOf(variances);
    fieldSigma_ = std::sqrt(std::max(excess, 0.0));
  }
}

const BoardField& BoardMap::FieldAround(int row, int column) const {
  const auto known = fields_.find({row, column});
  if (known != fields_.end()) {
    return known->second;
  }
  std::vector<Deviation> marks;
  for (int r = -kFieldWindow; r <= kFieldWindow; ++r) {
    for (auto mark = residuals_.lower_bound({row + r, column - kFieldWindow});
         mark != residuals_.end() && mark->first <= Label(row + r, column + kFieldWindow); ++mark) {
      const int c = mark->first.second - column;
      if (r * r + c * c <= kFieldReach) {
        marks.push_back({r, c, mark->second.away, mark->second.variance});
      }
    }
  }
  return fields_
      .emplace(Label(row, column), BoardField(std::move(marks), fieldSigma_ * fieldSigma_))
      .first->second;
}

Predicted BoardMap::At(int row, int column, bool withoutItself) const {
  Predicted predicted;
  CameraModel::Jacobian jacobian;
  predicted.isSeen = camera_.model.Project({column, row}, predicted.pixel, &jacobian);
  if (predicted.isSeen) {
    const BoardField& field = FieldAround(row, column);
    const BoardField::Estimate& estimate =
        withoutItself ? field.AtMiddleByOthers() : field.AtMiddle();
    predicted.pixel += estimate.away;
    predicted.covariance = jacobian * camera_.covariance * jacobian.transpose() +
                           estimate.variance * Eigen::Matrix2d::Identity();
  }
  return predicted;
}

bool BoardMap::Frame(int row, int column, const BoardFacts& facts, MarkFrame& frame) const {
  const Eigen::Vector2d middle(column, row);
  Eigen::Vector2d pixel;
  Eigen::Matrix2d byLabel;
  if (!camera_.model.Project(middle, pixel, nullptr, &byLabel)) {
    return false;
  }
  const BoardField& field = FieldAround(row, column);
  frame.centre = pixel + field.AtMiddle().away;
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
      const Eigen::Vector2d away = step * (kBendReach * i / kBendSamples);
      if (i != 0 && camera_.model.Project(middle + away, pixel)) {
        points.push_back(pixel + field.At(away.x(), away.y()));
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
