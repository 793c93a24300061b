#include "precise/board_size.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>

#include "precise/grid_labels.h"
#include "tests/precise/board_views.h"

namespace quorvex::tests {
namespace {

using precise::BoardSize;
using precise::FixedLabels;
using precise::GrayPicture;
using precise::Grid;
using precise::GridMark;
using precise::NameRowsAndColumns;

// Six rows of five columns, all of them well inside the picture.
DrawnBoard Board() {
  DrawnBoard board;
  board.width = 280;
  board.height = 320;
  board.rows = 6;
  board.columns = 5;
  board.first = {60, 60};
  board.step = {40, 2};
  return board;
}

const BoardSize kBoard{6, 5};

// Rows 2 to 5: the picture ends in the middle of row 1.
DrawnBoard CutAtTheTop() {
  DrawnBoard board = Board();
  board.first = {60, -44};
  return board;
}

// What the detection finds of it: the marks that lie whole within the picture.
Grid GridOf(const DrawnBoard& board) {
  Grid grid;
  const double reach = board.arm * board.step.norm();
  for (GridMark mark : TrueMarks(board)) {
    const Eigen::Vector2d& place = mark.fit.centre;
    if (place.x() > reach && place.y() > reach && place.x() < board.width - 1 - reach &&
        place.y() < board.height - 1 - reach) {
      mark.fit.darkness = board.board - board.mark;
      grid.marks.push_back(mark);
    }
  }
  grid.camera = CameraOf(board);
  grid.facts = FactsOf(board);
  NameRowsAndColumns(grid);
  return grid;
}

void FillRows(GrayPicture& picture, int first, int last, std::uint8_t level) {
  for (int y = first; y < last; ++y) {
    std::fill(picture.Row(y), picture.Row(y) + picture.Width(), level);
  }
}

void ExpectTrueLabels(const DrawnBoard& board, const Grid& grid) {
  for (const GridMark& mark : grid.marks) {
    EXPECT_LT((board.Place(mark.row, mark.column) - mark.fit.centre).norm(), 1e-9);
    Eigen::Vector2d pixel;
    ASSERT_TRUE(grid.camera.model.Project({mark.column, mark.row}, pixel));
    EXPECT_LT((pixel - mark.fit.centre).norm(), 1e-2);
  }
}

TEST(BoardSize, IsOneToAThousandOrNotKnown) {
  for (const BoardSize& right : {BoardSize{0, 0}, BoardSize{1, 1}, BoardSize{1000, 1000}}) {
    EXPECT_EQ(WrongSize(right), "");
  }
  for (const BoardSize& wrong : {BoardSize{0, 1}, BoardSize{1, 0}, BoardSize{1001, 5},
                                 BoardSize{5, 1001}, BoardSize{-1, -1}, BoardSize{5, -1}}) {
    EXPECT_EQ(WrongSize(wrong), "a board has 1 to 1000 rows and 1 to 1000 columns, or both are 0");
  }
}

TEST(BoardSize, MoreThanTheBoardHasIsAConflict) {
  const Grid grid = GridOf(Board());
  EXPECT_EQ(SizeConflict(grid, {6, 5}), "");
  EXPECT_EQ(SizeConflict(grid, {9, 9}), "");
  EXPECT_EQ(SizeConflict(grid, {5, 5}), "6 rows x 5 columns were found on a board of 5 x 5");
  EXPECT_EQ(SizeConflict(grid, {9, 4}), "6 rows x 5 columns were found on a board of 9 x 4");
}

TEST(BoardSize, ATurnedBoardIsAConflict) {
  EXPECT_EQ(SizeConflict(GridOf(Board()), {5, 6}),
            "6 rows x 5 columns were found on a board of 5 x 6, where they would fit turned by a "
            "right angle");
}

TEST(BoardSize, LabelsOfAWholeBoardAreFixed) {
  const DrawnBoard board = Board();
  Grid grid = GridOf(board);
  const FixedLabels fixed = FixLabels(board.Draw(), kBoard, grid);
  EXPECT_TRUE(fixed.rows);
  EXPECT_TRUE(fixed.columns);
  ExpectTrueLabels(board, grid);
}

TEST(BoardSize, RowsCutAtTheTopAreMissingThere) {
  const DrawnBoard board = CutAtTheTop();
  Grid grid = GridOf(board);
  ASSERT_EQ(grid.marks.size(), 20U);
  const FixedLabels fixed = FixLabels(board.Draw(), kBoard, grid);
  EXPECT_TRUE(fixed.rows);
  EXPECT_EQ(grid.marks[0].row, 2);
  ExpectTrueLabels(board, grid);
}

TEST(BoardSize, RowsCutAtTheBottomAreMissingThere) {
  DrawnBoard board = Board();
  board.height = 185;
  Grid grid = GridOf(board);
  ASSERT_EQ(grid.marks.size(), 15U);
  const FixedLabels fixed = FixLabels(board.Draw(), kBoard, grid);
  EXPECT_TRUE(fixed.rows);
  ExpectTrueLabels(board, grid);
}

TEST(BoardSize, ColumnsCutAtTheLeftAreMissingThere) {
  DrawnBoard board = Board();
  board.first = {10, 60};
  Grid grid = GridOf(board);
  ASSERT_EQ(grid.marks.size(), 24U);
  const FixedLabels fixed = FixLabels(board.Draw(), kBoard, grid);
  EXPECT_TRUE(fixed.rows);
  EXPECT_TRUE(fixed.columns);
  EXPECT_EQ(grid.marks[0].column, 1);
  ExpectTrueLabels(board, grid);
}

// Row 5 lies below the picture but for the ends of its arms.
TEST(BoardSize, TheNextRowsArmsTellThatItIsThere) {
  DrawnBoard board = Board();
  board.height = 260;
  ASSERT_GT(board.Place(5, 0).y(), board.height - 1);
  Grid grid = GridOf(board);
  ASSERT_EQ(grid.marks.size(), 25U);
  const GrayPicture picture = board.Draw();
  EXPECT_TRUE(FixLabels(picture, kBoard, grid).rows);
  ExpectTrueLabels(board, grid);
  GrayPicture blank = picture;
  FillRows(blank, 238, 260, 200);
  EXPECT_FALSE(FixLabels(blank, kBoard, grid).rows);
}

TEST(BoardSize, RowsThatMayBeMissingOnBothSidesAreNotFixed) {
  DrawnBoard board = CutAtTheTop();
  board.height = 143;
  Grid grid = GridOf(board);
  ASSERT_EQ(grid.marks.size(), 15U);
  const FixedLabels fixed = FixLabels(board.Draw(), kBoard, grid);
  EXPECT_FALSE(fixed.rows);
  EXPECT_TRUE(fixed.columns);
  EXPECT_EQ(grid.marks[0].row, 0);
}

TEST(BoardSize, RowsThatCannotBeMissingOnAnySideAreNotFixed) {
  const DrawnBoard board = Board();
  Grid grid = GridOf(board);
  EXPECT_FALSE(FixLabels(board.Draw(), {7, 5}, grid).rows);
  EXPECT_EQ(grid.marks[0].row, 0);
}

// The round picture of a fisheye lens, or a shadow.
TEST(BoardSize, WhatIsDarkIsNoEndOfTheBoard) {
  const DrawnBoard board = Board();
  Grid grid = GridOf(board);
  GrayPicture picture = board.Draw();
  FillRows(picture, 0, 42, 10);
  EXPECT_TRUE(FixLabels(picture, {8, 5}, grid).rows);
  EXPECT_EQ(grid.marks[0].row, 2);
}

// The paper of many boards is cut within a pitch of the last marks.
TEST(BoardSize, ANarrowMarginIsEnough) {
  DrawnBoard board = CutAtTheTop();
  board.step = {40, 0};
  Grid grid = GridOf(board);
  GrayPicture picture = board.Draw();
  const int edge = static_cast<int>(board.Place(5.8, 0).y());
  FillRows(picture, edge, picture.Height(), 10);
  EXPECT_TRUE(FixLabels(picture, kBoard, grid).rows);
  EXPECT_EQ(grid.marks[0].row, 2);
}

}  // namespace
}  // namespace quorvex::tests
