#include "precise/grid_labels.h"

#include <gtest/gtest.h>

#include <Eigen/Geometry>

#include "tests/precise/board_views.h"

namespace quorvex::tests {
namespace {

using precise::Grid;
using precise::GridMark;
using precise::NameRowsAndColumns;

Grid GridOf(const DrawnBoard& board) {
  Grid grid;
  grid.marks = TrueMarks(board);
  grid.camera = CameraOf(board);
  grid.facts = FactsOf(board);
  return grid;
}

class GridLabels : public testing::TestWithParam<int> {};

TEST_P(GridLabels, StartAtTheTopLeftAndTheCameraFollows) {
  constexpr double kTurns[4][2] = {{40, 9}, {-9, 40}, {-40, -9}, {9, -40}};
  DrawnBoard board;
  board.rows = 4;
  board.columns = 6;
  board.step = {kTurns[GetParam()][0], kTurns[GetParam()][1]};
  board.first = {500, 500};
  Grid grid = GridOf(board);
  grid.facts.strokeWidth = {0.1, 0.2};
  NameRowsAndColumns(grid);
  ASSERT_EQ(grid.marks.size(), 24U);
  EXPECT_EQ(grid.marks[0].row, 0);
  EXPECT_EQ(grid.marks[0].column, 0);
  const bool isTurned = GetParam() % 2 == 1;
  EXPECT_EQ(grid.marks.back().row, isTurned ? 5 : 3);
  EXPECT_EQ(grid.marks.back().column, isTurned ? 3 : 5);
  EXPECT_EQ(grid.facts.strokeWidth[0], isTurned ? 0.2 : 0.1);
  EXPECT_GT(grid.marks[1].fit.centre.x(), grid.marks[0].fit.centre.x() + 30);
  EXPECT_GT(grid.marks.back().fit.centre.y(), grid.marks[0].fit.centre.y() + 60);
  for (const GridMark& mark : grid.marks) {
    Eigen::Vector2d pixel;
    ASSERT_TRUE(grid.camera.model.Project({mark.column, mark.row}, pixel));
    EXPECT_LT((pixel - mark.fit.centre).norm(), 1e-2);
  }
}

INSTANTIATE_TEST_SUITE_P(AllQuarters, GridLabels, testing::Range(0, 4));

TEST(GridLabels, NegativeLabelsBecomeOrdinaryOnes) {
  DrawnBoard board;
  board.rows = board.columns = 3;
  Grid grid = GridOf(board);
  for (GridMark& mark : grid.marks) {
    mark.row -= 7;
    mark.column += 2;
  }
  grid.camera.model.translation -= grid.camera.model.rotation * Eigen::Vector3d(2, -7, 0);
  NameRowsAndColumns(grid);
  EXPECT_EQ(grid.marks[0].row, 0);
  EXPECT_EQ(grid.marks[8].column, 2);
  Eigen::Vector2d pixel;
  ASSERT_TRUE(grid.camera.model.Project({0, 0}, pixel));
  EXPECT_LT((pixel - board.first).norm(), 1e-2);
}

// Errors of the rotation about the old origin are errors of the place of the new one.
TEST(GridLabels, AMovedOriginLeavesPredictionsAsSureAsTheyWere) {
  DrawnBoard board;
  board.rows = board.columns = 3;
  Grid grid = GridOf(board);
  grid.camera.model.rotation = Eigen::AngleAxisd(0.3, Eigen::Vector3d(1, 2, 3).normalized());
  grid.camera.model.translation = {-1.0, -2.0, 9.0};
  grid.camera.model.focalLength = 400.0;
  grid.camera.model.aspect = 1.1;
  for (Eigen::Index i = 0; i < precise::CameraModel::kParameters; ++i) {
    grid.camera.covariance(i, i) = 1e-6 * (1.0 + static_cast<double>(i));
  }
  const precise::Predicted before = precise::BoardMap({}, grid.camera).At(2, 1, false);
  MoveOrigin(grid, -4, -7);
  const precise::Predicted after = precise::BoardMap({}, grid.camera).At(6, 8, false);
  EXPECT_LT((after.pixel - before.pixel).norm(), 1e-9);
  EXPECT_LT((after.covariance - before.covariance).norm(), 1e-9 * before.covariance.norm());
}

}  // namespace
}  // namespace quorvex::tests
