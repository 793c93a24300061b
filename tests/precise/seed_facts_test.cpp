#include "precise/seed_facts.h"

#include <gtest/gtest.h>

#include "tests/precise/board_views.h"

namespace quorvex::tests {
namespace {

using precise::BoardFacts;
using precise::BoardMap;
using precise::MeasureSeedFacts;
using precise::Seed;

TEST(SeedFacts, AreThoseOfTheBoard) {
  const DrawnBoard board = NoisyBoard();
  BoardFacts facts;
  ASSERT_TRUE(
      MeasureSeedFacts(board.Draw(), SeedOf(board, 5, 6), BoardMap({}, CameraOf(board)), facts));
  EXPECT_NEAR(facts.armEnd, board.arm, 0.02);
  EXPECT_NEAR(facts.strokeWidth[0], board.stroke / board.step.norm(), 0.005);
  EXPECT_NEAR(facts.sigma[1], board.blur, 0.1);
}

TEST(SeedFacts, HiddenArmsAreLeftOut) {
  const DrawnBoard board = NoisyBoard();
  Seed seed = SeedOf(board, 5, 6);
  for (std::size_t i = 0; i < seed.marks.size(); i += 2) {
    seed.marks[i].arms[1].isSeen = false;
    seed.marks[i].arms[1].length = 0.0;
  }
  BoardFacts facts;
  ASSERT_TRUE(MeasureSeedFacts(board.Draw(), seed, BoardMap({}, CameraOf(board)), facts));
  EXPECT_NEAR(facts.armEnd, board.arm, 0.02);
}

TEST(SeedFacts, AreNotFoundWithoutMarks) {
  const DrawnBoard board = NoisyBoard();
  BoardFacts facts;
  EXPECT_FALSE(MeasureSeedFacts(board.Draw(), Seed(), BoardMap({}, CameraOf(board)), facts));
}

TEST(SeedFacts, AreNotFoundOnAnEmptyPicture) {
  const DrawnBoard board = NoisyBoard();
  DrawnBoard nothing = board;
  nothing.rows = 0;
  BoardFacts facts;
  EXPECT_FALSE(
      MeasureSeedFacts(nothing.Draw(), SeedOf(board, 5, 6), BoardMap({}, CameraOf(board)), facts));
}

}  // namespace
}  // namespace quorvex::tests
