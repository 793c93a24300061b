#include "precise/grid_growth.h"

#include <gtest/gtest.h>

#include "tests/precise/board_views.h"

namespace quorvex::tests {
namespace {

using precise::Grid;
using precise::GridMark;
using precise::GrowGrid;
using precise::Seed;

TEST(GridGrowth, FindsEveryMarkFromAFew) {
  const DrawnBoard board = NoisyBoard();
  const Grid grid = GrowGrid(board.Draw(), SeedOf(board, 3, 3));
  ASSERT_EQ(grid.marks.size(), 30U) << grid.reason;
  for (const GridMark& mark : grid.marks) {
    EXPECT_LT((mark.fit.centre - board.Place(mark.row, mark.column)).norm(), 0.08)
        << mark.row << ", " << mark.column;
  }
}

TEST(GridGrowth, CrossesAGap) {
  DrawnBoard board = NoisyBoard();
  for (int row = 0; row < board.rows; ++row) {
    board.missing.insert({row, 3});
    board.missing.insert({row, 4});
  }
  const Grid grid = GrowGrid(board.Draw(), SeedOf(board, 5, 3));
  ASSERT_EQ(grid.marks.size(), 20U) << grid.reason;
  EXPECT_EQ(grid.marks.back().column, 5);
}

TEST(GridGrowth, AMissingMarkIsNotMadeUp) {
  DrawnBoard board = NoisyBoard();
  board.missing.insert({3, 4});
  const Grid grid = GrowGrid(board.Draw(), SeedOf(board, 3, 3));
  EXPECT_EQ(grid.marks.size(), 29U);
}

TEST(GridGrowth, TooFewMarksGiveAReason) {
  const DrawnBoard board = NoisyBoard();
  const Grid grid = GrowGrid(board.Draw(), SeedOf(board, 2, 2));
  EXPECT_TRUE(grid.marks.empty());
  EXPECT_EQ(grid.stage, "seed");
  EXPECT_FALSE(grid.reason.empty());
}

TEST(GridGrowth, TheReasonOfTheSeedIsKept) {
  const DrawnBoard board = NoisyBoard();
  Seed seed = SeedOf(board, 2, 2);
  seed.reason = "the lines run on";
  EXPECT_EQ(GrowGrid(board.Draw(), seed).reason, "the lines run on");
}

TEST(GridGrowth, ASeedWithoutStrokesGivesAReason) {
  DrawnBoard board = NoisyBoard();
  const Seed seed = SeedOf(board, 3, 3);
  board.rows = 0;
  const Grid grid = GrowGrid(board.Draw(), seed);
  EXPECT_TRUE(grid.marks.empty());
  EXPECT_EQ(grid.stage, "strokes");
}

// All marks but four are gone, so that fewer are left than contradict a camera.
TEST(GridGrowth, TooFewMarksThatAreMeasuredGiveAReason) {
  DrawnBoard board = NoisyBoard();
  const Seed seed = SeedOf(board, 3, 3);
  for (int row = 0; row < board.rows; ++row) {
    for (int column = 0; column < board.columns; ++column) {
      if (row > 1 || column > 1) {
        board.missing.insert({row, column});
      }
    }
  }
  const Grid grid = GrowGrid(board.Draw(), seed);
  EXPECT_TRUE(grid.marks.empty());
  EXPECT_EQ(grid.stage, "check");
}

TEST(GridGrowth, LabelsThatNoCameraSeesGiveAReason) {
  const DrawnBoard board = NoisyBoard();
  Seed seed = SeedOf(board, 3, 3);
  for (std::size_t i = 0; i < seed.marks.size(); ++i) {
    seed.marks[i].row = static_cast<int>(i * 5 % 9);
    seed.marks[i].column = static_cast<int>(i * 7 % 4);
  }
  const Grid grid = GrowGrid(board.Draw(), seed);
  EXPECT_TRUE(grid.marks.empty());
  EXPECT_FALSE(grid.reason.empty());
}

}  // namespace
}  // namespace quorvex::tests
