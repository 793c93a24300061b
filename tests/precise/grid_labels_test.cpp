#include "precise/grid_labels.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace quorvex::tests
