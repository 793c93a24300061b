#include "precise/board_facts.h"

#include <gtest/gtest.h>

#include "tests/precise/board_views.h"

namespace quorvex::tests {
namespace {

using precise::BoardFacts;
using precise::BoardMap;
using precise::GridLabel;
using precise::MeasureBoard;

DrawnBoard Grid() {
  DrawnBoard board;
  board.width = board.height = 240;
  board.rows = board.columns = 3;
  board.first = {60.4, 45.3};
  board.step = {64, 12};
  board.arm = 0.36;
  board.stroke = 3.5;
  board.noise = 1;
  return board;
}

const std::vector<GridLabel> kMarks = {{0, 0}, {0, 2}, {1, 1}, {2, 0}, {2, 2}};

TEST(BoardFacts, AreThoseOfTheDrawnBoard) {
  const DrawnBoard board = Grid();
  BoardFacts facts;
  ASSERT_TRUE(MeasureBoard(board.Draw(), BoardMap({}, CameraOf(board)), kMarks, 1.0, 0.42, facts));
  for (std::size_t stroke = 0; stroke < 2; ++stroke) {
    EXPECT_NEAR(facts.strokeWidth[stroke] * board.step.norm(), 3.5, 0.06);
    EXPECT_NEAR(facts.sigma[stroke], 0.7, 0.06);
  }
  EXPECT_NEAR(facts.armEnd, 0.36, 0.01);
}

TEST(BoardFacts, LinesThatGoOnHaveNoEnd) {
  DrawnBoard board = Grid();
  board.arm = 0.5;
  BoardFacts facts;
  ASSERT_TRUE(
      MeasureBoard(board.Draw(), BoardMap({}, CameraOf(board)), {{1, 1}}, 1.0, 0.45, facts));
  EXPECT_GE(facts.armEnd, 0.49);
}

TEST(BoardFacts, NoneOnAnEmptyPicture) {
  BoardFacts facts;
  EXPECT_FALSE(MeasureBoard(precise::GrayPicture(240, 240, 100), BoardMap({}, CameraOf(Grid())),
                            kMarks, 1.0, 0.42, facts));
}

TEST(BoardFacts, NoneOfABoardBehindTheCamera) {
  BoardFacts facts;
  EXPECT_FALSE(
      MeasureBoard(Grid().Draw(), BoardMap({}, CameraBefore(Grid())), kMarks, 1.0, 0.42, facts));
}

// The strokes are there, but so is no whole mark: each has one arm.
TEST(BoardFacts, NoneOfMarksThatLackArms) {
  const DrawnBoard board = Grid();
  precise::GrayPicture picture = board.Draw();
  for (const GridLabel& mark : kMarks) {
    const Eigen::Vector2d place = board.Place(mark.row, mark.column);
    for (int y = 0; y < picture.Height(); ++y) {
      for (int x = 0; x < picture.Width(); ++x) {
        const Eigen::Vector2d away = Eigen::Vector2d(x, y) - place;
        if (away.norm() < 30 && away.x() < 4) {
          picture.Row(y)[x] = 200;
        }
      }
    }
  }
  BoardFacts facts;
  EXPECT_FALSE(MeasureBoard(picture, BoardMap({}, CameraOf(board)), kMarks, 1.0, 0.36, facts));
}

}  // namespace
}  // namespace quorvex::tests
