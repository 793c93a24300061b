#include "precise/label_map.h"

#include <gtest/gtest.h>

#include "tests/precise/mark_drawing.h"

namespace quorvex::tests {
namespace {

using precise::LabelledMark;
using precise::LabelMap;
using precise::MarkCandidate;
using precise::MarkPrediction;
using precise::PredictedArms;

// A board of candidates, bent by a quadratic, with the label of each.
struct BentBoard {
  std::vector<MarkCandidate> marks = BoardOfCandidates(6, 6, 0);
  std::vector<LabelledMark> labelled;

  explicit BentBoard(double bend) {
    for (int i = 0; i < 36; ++i) {
      const int row = i / 6;
      const int column = i % 6;
      marks[static_cast<std::size_t>(i)].centre +=
          bend * Eigen::Vector2d(column * column, row * column);
      labelled.push_back({i, row, column, 0});
    }
  }
};

TEST(LabelMap, FindsWhatWasSet) {
  const BentBoard board(0);
  LabelMap map(board.marks, board.labelled);
  ASSERT_NE(map.Find(2, 3), nullptr);
  EXPECT_EQ(map.Find(2, 3)->mark, 15);
  EXPECT_EQ(map.Find(-1, 0), nullptr);
  map.Remove(board.labelled[15]);
  EXPECT_EQ(map.Find(2, 3), nullptr);
}

TEST(LabelMap, NegativeLabelsAreOfTheirOwn) {
  const BentBoard board(0);
  LabelMap map(board.marks, {});
  map.Set({1, -1, 0, 0});
  map.Set({2, 0, -1, 0});
  EXPECT_EQ(map.Find(-1, 0)->mark, 1);
  EXPECT_EQ(map.Find(0, -1)->mark, 2);
  EXPECT_EQ(map.Find(0, 0), nullptr);
}

TEST(LabelMap, PredictionInsideAndBesideTheBoardFollowsItsBend) {
  const BentBoard board(3);
  const LabelMap map(board.marks, board.labelled);
  for (const auto& [row, column] : {std::pair(2, 2), {0, 0}, {5, 3}, {2, 5}}) {
    const MarkPrediction prediction = map.Predict(row, column);
    ASSERT_GE(prediction.votes, 2);
    const Eigen::Vector2d centre = board.marks[static_cast<std::size_t>(row * 6 + column)].centre;
    EXPECT_LT((prediction.centre - centre).norm(), 0.5 * prediction.tolerance);
    EXPECT_LT(prediction.tolerance, 30);
  }
}

// The place is in nobody's row or column; a quadratic surface knows it exactly.
TEST(LabelMap, SurfacePredictsWhereRowsAndColumnsSayNothing) {
  const BentBoard board(3);
  LabelMap map(board.marks, board.labelled);
  for (int k = 0; k < 6; ++k) {
    map.Remove(board.labelled[static_cast<std::size_t>(12 + k)]);
    map.Remove(board.labelled[static_cast<std::size_t>(6 * k + 2)]);
  }
  const MarkPrediction prediction = map.Predict(2, 2);
  ASSERT_GT(prediction.votes, 0);
  EXPECT_LT((prediction.centre - board.marks[14].centre).norm(), 1e-6);
}

TEST(LabelMap, MarksInARowDoNotPredictBesideIt) {
  const BentBoard board(0);
  LabelMap map(board.marks, {});
  for (std::size_t k = 0; k < 6; ++k) {
    map.Set(board.labelled[k]);
  }
  EXPECT_EQ(map.Predict(1, 2).votes, 0);
  EXPECT_EQ(map.Predict(20, 20).votes, 0);
}

TEST(LabelMap, ArmsArePredictedByTheMarksAround) {
  const BentBoard board(0);
  const LabelMap map(board.marks, board.labelled);
  const PredictedArms arms = map.PredictArms(2, 2);
  EXPECT_EQ(arms.votes, 8);
  EXPECT_LT((arms.directions[1] - Eigen::Vector2d(0, 1)).norm(), 1e-9);
  EXPECT_DOUBLE_EQ(arms.contrast, 100);
  EXPECT_DOUBLE_EQ(arms.length, 40);
  EXPECT_EQ(map.PredictArms(20, 20).votes, 0);
}

}  // namespace
}  // namespace quorvex::tests
