#include "precise/board_cells.h"

#include <gtest/gtest.h>

#include <map>
#include <utility>

#include "tests/precise/mark_drawing.h"

namespace quorvex::tests {
namespace {

using precise::FindMarkLinks;
using precise::kNoMark;
using precise::LabelLargestComponent;
using precise::LabelledMark;
using precise::MarkCandidate;
using precise::MarkLinks;

constexpr int kSide = 3000;  // px of the picture

std::vector<LabelledMark> Labelled(const std::vector<MarkCandidate>& marks) {
  return LabelLargestComponent(marks, FindMarkLinks(marks, kSide, kSide));
}

TEST(BoardCells, LabelsFollowRowsAndColumns) {
  const std::vector<LabelledMark> labelled = Labelled(BoardOfCandidates(3, 4, 20));
  ASSERT_EQ(labelled.size(), 12u);
  for (const LabelledMark& mark : labelled) {
    EXPECT_EQ(mark.row, mark.mark / 4);
    EXPECT_EQ(mark.column, mark.mark % 4);
    EXPECT_EQ(mark.turn, 0);
  }
}

// Candidates order their arms from anywhere.
TEST(BoardCells, TurnSaysWhichArmPointsAlongTheColumns) {
  std::vector<MarkCandidate> marks = BoardOfCandidates(3, 4, 20);
  for (std::size_t i = 0; i < marks.size(); ++i) {
    const auto arms = marks[i].arms;
    for (std::size_t k = 0; k < 4; ++k) {
      marks[i].arms[k] = arms[(k + i) % 4];
    }
  }
  const std::vector<LabelledMark> labelled = Labelled(marks);
  ASSERT_EQ(labelled.size(), 12u);
  for (const LabelledMark& mark : labelled) {
    EXPECT_EQ(mark.row, mark.mark / 4);
    EXPECT_EQ(mark.column, mark.mark % 4);
    EXPECT_EQ(mark.turn, mark.mark % 4);
  }
}

TEST(BoardCells, RowAloneHasNoLabels) { EXPECT_TRUE(Labelled(BoardOfCandidates(1, 8, 0)).empty()); }

TEST(BoardCells, MarkThatNoCellHoldsHasNoLabel) {
  std::vector<MarkCandidate> marks = BoardOfCandidates(3, 3, 0);
  MarkCandidate beside = marks[2];
  beside.centre.x() += 100;
  marks.push_back(beside);
  EXPECT_EQ(Labelled(marks).size(), 9u);
}

// A trapezium whose one side is more than twice the opposite one is no cell of a board that a
// camera sees.
TEST(BoardCells, CellsOfUnlikeSidesAreNone) {
  std::vector<MarkCandidate> marks = BoardOfCandidates(2, 2, 0);
  const MarkLinks links = FindMarkLinks(marks, kSide, kSide);
  marks[1].centre.x() += 110;
  EXPECT_EQ(LabelLargestComponent(marks, links).size(), 4u);
  marks[1].centre.x() += 20;
  EXPECT_TRUE(LabelLargestComponent(marks, links).empty());
}

// The way round it turns the other way.
TEST(BoardCells, CellsThatAreFoldedAreNone) {
  std::vector<MarkCandidate> marks = BoardOfCandidates(2, 2, 0);
  const MarkLinks links = FindMarkLinks(marks, kSide, kSide);
  std::swap(marks[0].centre, marks[1].centre);
  EXPECT_TRUE(LabelLargestComponent(marks, links).empty());
}

TEST(BoardCells, LargerOfTwoBoardsIsLabelled) {
  std::vector<MarkCandidate> marks = BoardOfCandidates(2, 2, 0);
  for (MarkCandidate mark : BoardOfCandidates(3, 3, 0)) {
    mark.centre += Eigen::Vector2d(1500, 700);
    marks.push_back(mark);
  }
  const std::vector<LabelledMark> labelled = Labelled(marks);
  ASSERT_EQ(labelled.size(), 9u);
  EXPECT_GE(labelled[0].mark, 4);
}

// The right half of the board is linked one row lower than the left half, but for the top row.
TEST(BoardCells, CellsThatContradictHaveNoLabels) {
  const std::vector<MarkCandidate> marks = BoardOfCandidates(8, 8, 0);
  MarkLinks links = FindMarkLinks(marks, kSide, kSide);
  for (int row = 4; row < 8; ++row) {
    const std::size_t left = static_cast<std::size_t>(row * 8 + 3);
    const int below = row + 1 < 8 ? (row + 1) * 8 + 4 : kNoMark;
    links.links[left][0].mark = below;
    if (below != kNoMark) {
      links.links[static_cast<std::size_t>(below)][2].mark = static_cast<int>(left);
    }
  }
  links.links[4 * 8 + 4][2].mark = kNoMark;
  std::map<std::pair<int, int>, int> places;
  for (const LabelledMark& mark : LabelLargestComponent(marks, links)) {
    EXPECT_EQ(++places[std::make_pair(mark.row, mark.column)], 1);
  }
  EXPECT_LT(places.size(), 64u);
}

}  // namespace
}  // namespace quorvex::tests
