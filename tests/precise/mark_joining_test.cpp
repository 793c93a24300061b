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

// Nothing links it: the arm towards the board is not seen.
TEST(MarkJoining, MarkOfOtherArmsDoesNotJoin) {
  std::vector<MarkCandidate> like = BoardAndOne();
  like[16].arms[2].isSeen = false;
  EXPECT_NE(Find(Joined(like), 16), nullptr);
  std::vector<MarkCandidate> longer = like;
  longer[16].arms[1].length = 65;
  EXPECT_EQ(Find(Joined(longer), 16), nullptr);
  std::vector<MarkCandidate> darker = like;
  darker[16].arms[1].contrast = 260;
  EXPECT_EQ(Find(Joined(darker), 16), nullptr);
}

// Further from its place than neighbours alone allow, but linked, and its arms say that it is one
// step away.
TEST(MarkJoining, LinkedMarkMayLieOffItsPlace) {
  std::vector<MarkCandidate> marks = BoardAndOne();
  marks[16].centre.x() += 26;
  for (auto& arm : marks[16].arms) {
    arm.length = 52;
  }
  const std::vector<LabelledMark> labelled = Joined(marks);
  ASSERT_NE(Find(labelled, 16), nullptr);
  EXPECT_EQ(Find(labelled, 16)->column, 4);
}

// One link says that it is beyond the end of its row, the other that it is below the board.
TEST(MarkJoining, ContradictingLinksDoNotJoin) {
  std::vector<MarkCandidate> marks = BoardAndOne();
  marks[16].centre = {2000, 2000};
  MarkLinks links = FindMarkLinks(marks, kSide, kSide);
  std::vector<LabelledMark> labelled = LabelLargestComponent(marks, links);
  links.links[7][0] = {16, 2};
  links.links[16][2] = {7, 0};
  links.links[14][1] = {16, 3};
  links.links[16][3] = {14, 1};
  JoinPredictedMarks(marks, links, kSide, kSide, labelled);
  EXPECT_EQ(Find(labelled, 16), nullptr);
  // With one of them alone it is too far from there.
  links.links[14][1] = links.links[16][3] = {};
  JoinPredictedMarks(marks, links, kSide, kSide, labelled);
  EXPECT_EQ(Find(labelled, 16), nullptr);
}

// Two marks that are labelled say nothing of places beside them, so that links decide.
TEST(MarkJoining, LinksThatAgreeNeedNoPrediction) {
  const std::vector<MarkCandidate> marks = BoardOfCandidates(2, 2, 0);
  MarkLinks links = FindMarkLinks(marks, kSide, kSide);
  const std::vector<LabelledMark> known = {{1, 0, 1, 0}, {2, 1, 0, 0}};
  std::vector<LabelledMark> labelled = known;
  JoinPredictedMarks(marks, links, kSide, kSide, labelled);
  ASSERT_EQ(labelled.size(), 4u);
  EXPECT_EQ(Find(labelled, 3)->row, 1);
  EXPECT_EQ(Find(labelled, 3)->column, 1);
  // One link is not enough.
  links.links[2][0] = links.links[3][2] = {};
  links.links[0][1] = links.links[2][3] = {};
  labelled = known;
  JoinPredictedMarks(marks, links, kSide, kSide, labelled);
  EXPECT_EQ(labelled.size(), 2u);
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
