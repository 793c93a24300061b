#include "precise/board_map.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/precise/board_views.h"

namespace quorvex::tests {
namespace {

using precise::BoardMap;
using precise::GridMark;
using precise::MarkFrame;
using precise::Predicted;

DrawnBoard Grid() {
  DrawnBoard board;
  board.rows = 7;
  board.columns = 7;
  board.first = {50, 60};
  board.step = {40, 8};
  return board;
}

TEST(BoardMap, WithoutMarksTheCameraAloneSpeaks) {
  const DrawnBoard board = Grid();
  const Predicted predicted = BoardMap({}, CameraOf(board)).At(2, 3, false);
  ASSERT_TRUE(predicted.isSeen);
  EXPECT_LT((predicted.pixel - board.Place(2, 3)).norm(), 1e-3);
}

TEST(BoardMap, FollowsASmoothDeviationFromTheCamera) {
  const DrawnBoard board = Grid();
  std::vector<GridMark> marks = TrueMarks(board);
  for (GridMark& mark : marks) {
    mark.fit.centre.x() += 0.4 * std::sin(0.5 * mark.column);
  }
  const BoardMap map(marks, CameraOf(board));
  EXPECT_GT(map.FieldSigma(), 0.1);
  const Predicted predicted = map.At(3, 3, true);
  EXPECT_NEAR(predicted.pixel.x(), board.Place(3, 3).x() + 0.4 * std::sin(1.5), 0.04);
  EXPECT_LT(std::sqrt(predicted.covariance(0, 0)), 0.1);
}

TEST(BoardMap, IsLessSureFarFromItsMarks) {
  const DrawnBoard board = Grid();
  std::vector<GridMark> marks = TrueMarks(board);
  for (GridMark& mark : marks) {
    mark.fit.centre.y() += 0.2 * std::cos(0.7 * mark.row);
  }
  const BoardMap map(marks, CameraOf(board));
  EXPECT_GT(map.At(3, 12, false).covariance.trace(), 4.0 * map.At(3, 3, true).covariance.trace());
}

TEST(BoardMap, FramesHaveTheBoardsDirectionsLengthsAndWidths) {
  const DrawnBoard board = Grid();
  MarkFrame frame;
  ASSERT_TRUE(BoardMap(TrueMarks(board), CameraOf(board)).Frame(1, 2, FactsOf(board), frame));
  EXPECT_LT((frame.centre - board.Place(1, 2)).norm(), 1e-3);
  EXPECT_LT((frame.direction[0] - board.step.normalized()).norm(), 1e-6);
  EXPECT_NEAR(frame.direction[0].dot(frame.direction[1]), 0.0, 1e-6);
  EXPECT_NEAR(frame.width[1], board.stroke, 1e-3);
  EXPECT_NEAR(frame.armLength[1][0], board.arm * board.step.norm(), 1e-3);
  EXPECT_NEAR(frame.aside[0], 0.0, 1e-4);
}

TEST(BoardMap, BehindTheCameraNothingIsSeen) {
  const DrawnBoard board = Grid();
  const BoardMap map(TrueMarks(board), CameraBefore(board));
  EXPECT_EQ(map.FieldSigma(), 0.0);
  EXPECT_FALSE(map.At(1, 2, true).isSeen);
  MarkFrame frame;
  EXPECT_FALSE(map.Frame(1, 2, FactsOf(board), frame));
}

TEST(BoardMap, MarksThatAreNotMeasuredSayNothing) {
  const DrawnBoard board = Grid();
  std::vector<GridMark> marks = TrueMarks(board);
  for (GridMark& mark : marks) {
    mark.fit.isMeasured = false;
    mark.fit.centre.x() += 5.0;
  }
  const Predicted predicted = BoardMap(marks, CameraOf(board)).At(2, 3, false);
  EXPECT_LT((predicted.pixel - board.Place(2, 3)).norm(), 1e-3);
}

}  // namespace
}  // namespace quorvex::tests
