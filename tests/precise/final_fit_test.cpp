#include "precise/final_fit.h"

#include <gtest/gtest.h>

#include <Eigen/LU>

#include "tests/precise/board_views.h"

namespace quorvex::tests {
namespace {

using precise::Grid;
using precise::GridMark;
using precise::MarkVerdict;
using precise::MeasureFinally;

DrawnBoard Board() {
  DrawnBoard board;
  board.width = 420;
  board.height = 360;
  board.rows = 6;
  board.columns = 7;
  board.first = {60.2, 30.6};
  board.step = {49, 6};
  board.noise = 4;
  return board;
}

Grid GridOf(const DrawnBoard& board) {
  Grid grid;
  grid.marks = TrueMarks(board);
  grid.camera = CameraOf(board);
  grid.facts = FactsOf(board);
  return grid;
}

TEST(FinalFit, MeasuresAsWellAsItsCovariancesSay) {
  const DrawnBoard board = Board();
  Grid grid = GridOf(board);
  const std::vector<MarkVerdict> verdicts = MeasureFinally(board.Draw(), board.noise, grid);
  ASSERT_EQ(grid.marks.size(), 42U);
  ASSERT_EQ(verdicts.size(), 42U);
  double sum = 0.0;
  for (std::size_t i = 0; i < grid.marks.size(); ++i) {
    const GridMark& mark = grid.marks[i];
    const Eigen::Vector2d away = mark.fit.centre - board.Place(mark.row, mark.column);
    EXPECT_LT(away.norm(), 0.08);
    sum += 0.5 * away.dot(mark.fit.covariance.inverse() * away) / 42.0;
    EXPECT_FALSE(verdicts[i].isDoubtful) << mark.row << ", " << mark.column;
  }
  EXPECT_NEAR(sum, 1.0, 0.35);
}

TEST(FinalFit, AMarkWithHiddenArmsIsDoubtful) {
  const DrawnBoard board = Board();
  precise::GrayPicture picture = board.Draw();
  const Eigen::Vector2d place = board.Place(3, 3);
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      const double dx = x - place.x();
      const double dy = y - place.y();
      if (std::max(std::abs(dx), std::abs(dy)) < 26 && (dx > 4 || dy > 4)) {
        picture.Row(y)[x] = 200;
      }
    }
  }
  Grid grid = GridOf(board);
  const std::vector<MarkVerdict> verdicts = MeasureFinally(picture, board.noise, grid);
  bool isFound = false;
  for (std::size_t i = 0; i < grid.marks.size(); ++i) {
    if (grid.marks[i].row == 3 && grid.marks[i].column == 3) {
      isFound = true;
      EXPECT_TRUE(verdicts[i].isDoubtful);
    }
  }
  EXPECT_TRUE(isFound);
}

TEST(FinalFit, MarksThatAreGoneLeaveTheGrid) {
  DrawnBoard board = Board();
  Grid grid = GridOf(board);
  board.missing.insert({2, 2});
  MeasureFinally(board.Draw(), board.noise, grid);
  EXPECT_EQ(grid.marks.size(), 41U);
}

TEST(FinalFit, NothingIsLeftOfABoardBehindTheCamera) {
  const DrawnBoard board = Board();
  Grid grid = GridOf(board);
  grid.camera = CameraBefore(board);
  EXPECT_TRUE(MeasureFinally(board.Draw(), board.noise, grid).empty());
  EXPECT_TRUE(grid.marks.empty());
}

// No four marks in a row tell how much larger errors are than they seem.
TEST(FinalFit, ASmallBoardIsMeasuredAsWell) {
  DrawnBoard board = Board();
  board.rows = 2;
  board.columns = 3;
  Grid grid = GridOf(board);
  EXPECT_EQ(MeasureFinally(board.Draw(), board.noise, grid).size(), 6U);
  for (const GridMark& mark : grid.marks) {
    EXPECT_LT((mark.fit.centre - board.Place(mark.row, mark.column)).norm(), 0.1);
    EXPECT_GT(mark.fit.covariance.determinant(), 0.0);
  }
}

}  // namespace
}  // namespace quorvex::tests
