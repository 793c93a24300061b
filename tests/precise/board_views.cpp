#include "tests/precise/board_views.h"

#include <gtest/gtest.h>

namespace quorvex::tests {

precise::CameraFit CameraOf(const DrawnBoard& board) {
  constexpr double kDistance = 1e4;  // pitches
  precise::CameraFit fit;
  const Eigen::Vector2d right = board.step.normalized();
  fit.model.rotation << right.x(), -right.y(), 0.0, right.y(), right.x(), 0.0, 0.0, 0.0, 1.0;
  fit.model.translation = {0.0, 0.0, kDistance};
  fit.model.focalLength = board.step.norm() * kDistance;
  fit.model.centre = board.first;
  fit.residual = 0.01;
  fit.isFitted = true;
  return fit;
}

precise::CameraFit CameraBefore(const DrawnBoard& board) {
  precise::CameraFit fit = CameraOf(board);
  fit.model.translation = -fit.model.translation;
  return fit;
}

precise::BoardFacts FactsOf(const DrawnBoard& board) {
  precise::BoardFacts facts;
  facts.strokeWidth.fill(board.stroke / board.step.norm());
  facts.sigma.fill(board.blur);
  facts.armEnd = board.arm;
  return facts;
}

std::vector<precise::GridMark> TrueMarks(const DrawnBoard& board) {
  std::vector<precise::GridMark> marks;
  for (int row = 0; row < board.rows; ++row) {
    for (int column = 0; column < board.columns; ++column) {
      if (board.missing.count({row, column}) == 0) {
        precise::GridMark mark;
        mark.row = row;
        mark.column = column;
        mark.fit.isMeasured = true;
        mark.fit.centre = board.Place(row, column);
        mark.fit.covariance = 1e-4 * Eigen::Matrix2d::Identity();
        marks.push_back(mark);
      }
    }
  }
  return marks;
}

DrawnBoard NoisyBoard() {
  DrawnBoard board;
  board.width = 330;
  board.height = 300;
  board.rows = 5;
  board.columns = 6;
  board.first = {45.2, 30.6};
  board.step = {48, 6};
  board.noise = 1.5;
  return board;
}

std::vector<precise::LabelledPoint> PointsSeenBy(const precise::CameraModel& camera) {
  std::vector<precise::LabelledPoint> points;
  for (int row = 0; row < 8; ++row) {
    for (int column = 0; column < 9; ++column) {
      precise::LabelledPoint point;
      point.label = {column, row};
      EXPECT_TRUE(camera.Project(point.label, point.pixel));
      points.push_back(point);
    }
  }
  return points;
}

precise::Seed SeedOf(const DrawnBoard& board, int rows, int columns) {
  precise::Seed seed;
  seed.noise = board.noise;
  seed.pitch = board.step.norm();
  const Eigen::Vector2d right = board.step.normalized();
  const Eigen::Vector2d down(-right.y(), right.x());
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      precise::SeedMark mark;
      mark.row = row;
      mark.column = column;
      mark.centre =
          board.Place(row, column) + Eigen::Vector2d(0.2 * (row % 2), -0.2 * (column % 2));
      const Eigen::Vector2d directions[4] = {right, down, -right, -down};
      for (std::size_t arm = 0; arm < 4; ++arm) {
        mark.arms[arm].isSeen = true;
        mark.arms[arm].direction = directions[arm];
        mark.arms[arm].length = board.arm * seed.pitch;
        mark.arms[arm].contrast = 150.0;
      }
      seed.marks.push_back(mark);
    }
  }
  return seed;
}

}  // namespace quorvex::tests
