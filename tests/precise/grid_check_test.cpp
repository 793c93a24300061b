#include "precise/grid_check.h"

#include <gtest/gtest.h>

#include "tests/precise/board_views.h"

namespace quorvex::tests {
namespace {

using precise::BoardMap;
using precise::CameraFit;
using precise::GridMark;

DrawnBoard Grid() {
  DrawnBoard board;
  board.rows = 6;
  board.columns = 7;
  board.first = {60, 50};
  board.step = {80, 10};
  return board;
}

TEST(GridCheck, DropsTheMarkThatTheOthersContradict) {
  const DrawnBoard board = Grid();
  std::vector<GridMark> marks = TrueMarks(board);
  marks[17].fit.centre.x() += 3.0;
  CameraFit camera = CameraOf(board);
  DropContradicted(marks, camera, 640, 480);
  ASSERT_EQ(marks.size(), 41U);
  for (const GridMark& mark : marks) {
    EXPECT_LT((mark.fit.centre - board.Place(mark.row, mark.column)).norm(), 1e-9);
  }
}

// The worst goes first, and with it what is at least half as wrong.
TEST(GridCheck, DropsEveryMarkThatTheOthersContradict) {
  const DrawnBoard board = Grid();
  std::vector<GridMark> marks = TrueMarks(board);
  marks[8].fit.centre.x() += 3.0;
  marks[30].fit.centre.y() -= 2.5;
  marks[26].fit.centre.x() -= 1.0;
  CameraFit camera = CameraOf(board);
  DropContradicted(marks, camera, 640, 480);
  ASSERT_EQ(marks.size(), 39U);
  for (const GridMark& mark : marks) {
    EXPECT_LT((mark.fit.centre - board.Place(mark.row, mark.column)).norm(), 1e-9);
  }
}

TEST(GridCheck, MarksThatTheCameraCannotSeeContradictIt) {
  const DrawnBoard board = Grid();
  const std::vector<GridMark> marks = TrueMarks(board);
  const double usual = UsualScatter(marks, BoardMap(marks, CameraOf(board)));
  const BoardMap behind(marks, CameraBefore(board));
  EXPECT_EQ(UsualScatter(marks, behind), usual);
  EXPECT_GE(Contradiction(marks[0], behind, usual), 1e9);
}

TEST(GridCheck, OnlyMeasuredMarksArePoints) {
  std::vector<GridMark> marks = TrueMarks(Grid());
  marks[3].fit.isMeasured = false;
  EXPECT_EQ(PointsOf(marks).size(), marks.size() - 1);
}

TEST(GridCheck, KeepsMarksThatAgree) {
  const DrawnBoard board = Grid();
  std::vector<GridMark> marks = TrueMarks(board);
  CameraFit camera = CameraOf(board);
  DropContradicted(marks, camera, 640, 480);
  EXPECT_EQ(marks.size(), 42U);
}

TEST(GridCheck, ContradictionGrowsWithTheDistance) {
  const DrawnBoard board = Grid();
  std::vector<GridMark> marks = TrueMarks(board);
  const BoardMap map(marks, CameraOf(board));
  GridMark moved = marks[10];
  moved.fit.centre.y() += 0.05;
  const double near = Contradiction(moved, map, 0.01);
  moved.fit.centre.y() += 0.05;
  EXPECT_NEAR(Contradiction(moved, map, 0.01), 2.0 * near, 0.2 * near);
  EXPECT_GT(near, 2.0);
}

}  // namespace
}  // namespace quorvex::tests
