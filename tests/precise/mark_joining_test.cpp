#include "precise/mark_joining.h"

#include <gtest/gtest.h>

#include "tests/precise/mark_drawing.h"

namespace quorvex::tests {
namespace {

using precise::FindMarkLinks;
using precise::JoinPredictedMarks;
using precise::LabelLargestComponent;
using precise::LabelledMark;
using precise::MarkCandidate;
using precise::MarkLinks;

constexpr int kSide = 3000;  // px of the picture

std::vector<LabelledMark> Joined(const std::vector<MarkCandidate>& marks) {
  const MarkLinks links = FindMarkLinks(marks, kSide, kSide);
  std::vector<LabelledMark> labelled = LabelLargestComponent(marks, links);
  JoinPredictedMarks(marks, links, kSide, kSide, labelled);
  return labelled;
}

// A board of 4 x 4 and one mark more, number 16, beside the end of its second row.
std::vector<MarkCandidate> BoardAndOne() {
  std::vector<MarkCandidate> marks = BoardOfCandidates(4, 4, 0);
  marks.push_back(marks[7]);
  marks[16].centre.x() += 100;
  return marks;
}

const LabelledMark* Find(const std::vector<LabelledMark>& labelled, int mark) {
  for (const LabelledMark& label : labelled) {
    if (label.mark == mark) {
      return &label;
    }
  }
  return nullptr;
}

TEST(MarkJoining, MarkBesideTheCellsJoins) {
  const std::vector<LabelledMark> labelled = Joined(BoardAndOne());
  ASSERT_EQ(labelled.size(), 17u);
  ASSERT_NE(Find(labelled, 16), nullptr);
  EXPECT_EQ(Find(labelled, 16)->row, 1);
  EXPECT_EQ(Find(labelled, 16)->column, 4);
}

TEST(MarkJoining, MarkWithTwoArmsJoins) {
  std::vector<MarkCandidate> marks = BoardAndOne();
  marks[16].arms[0].isSeen = false;
  marks[16].arms[0].length = 0;
  marks[16].arms[1].isSeen = false;
  marks[16].arms[1].length = 0;
  EXPECT_NE(Find(Joined(marks), 16), nullptr);
}

TEST(MarkJoining, MarkAwayFromItsPlaceDoesNotJoin) {
  std::vector<MarkCandidate> marks = BoardAndOne();
  marks[16].centre.y() += 35;
  EXPECT_EQ(Find(Joined(marks), 16), nullptr);
}

TEST(MarkJoining, MarkThatIsTurnedOrPalerDoesNotJoin) {
  std::vector<MarkCandidate> turned = BoardAndOne();
  for (std::size_t k = 0; k < 4; ++k) {
    turned[16].arms[k].direction = DirectionOf(30 + 90.0 * static_cast<double>(k));
  }
  EXPECT_EQ(Find(Joined(turned), 16), nullptr);
  std::vector<MarkCandidate> paler = BoardAndOne();
  for (auto& arm : paler[16].arms) {
    arm.contrast = 15;
  }
  EXPECT_EQ(Find(Joined(paler), 16), nullptr);
}

// As long as its arms are, the next mark of a board of larger pitch would be twice as far away.
TEST(MarkJoining, MarkWhoseArmsAreOfAnotherPitchDoesNotJoin) {
  std::vector<MarkCandidate> marks = BoardAndOne();
  for (auto& arm : marks[16].arms) {
    arm.length = 8;
  }
  EXPECT_EQ(Find(Joined(marks), 16), nullptr);
}

// No mark stands next to it, in whatever direction.
TEST(MarkJoining, MarkWithoutNeighboursJoins) {
  std::vector<MarkCandidate> marks = BoardOfCandidates(7, 7, 0);
  const MarkCandidate lonely = marks[3 * 7 + 3];  // the middle
  for (int row = 4; row >= 2; --row) {
    marks.erase(marks.begin() + row * 7 + 2, marks.begin() + row * 7 + 5);
  }
  marks.push_back(lonely);
  const std::vector<LabelledMark> labelled = Joined(marks);
  ASSERT_EQ(labelled.size(), 41u);
  ASSERT_NE(Find(labelled, 40), nullptr);
  EXPECT_EQ(Find(labelled, 40)->row, 3);
  EXPECT_EQ(Find(labelled, 40)->column, 3);
}

}  // namespace
}  // namespace quorvex::tests
