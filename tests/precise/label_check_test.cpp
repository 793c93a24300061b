#include "precise/label_check.h"

#include <gtest/gtest.h>

#include "precise/mark_links.h"
#include "tests/precise/mark_drawing.h"

namespace quorvex::tests {
namespace {

using precise::AreStepsRight;
using precise::DropUnpredictedMarks;
using precise::FindMarkLinks;
using precise::LabelLargestComponent;
using precise::LabelledMark;
using precise::LabelMap;
using precise::MarkCandidate;

constexpr int kSide = 3000;          // px of the picture
constexpr double kStepRatio = 1.25;  // 100 px over two arms of 40 px

int CountOf(const std::vector<LabelledMark>& labelled, int mark) {
  int count = 0;
  for (const LabelledMark& label : labelled) {
    count += label.mark == mark ? 1 : 0;
  }
  return count;
}

TEST(LabelCheck, StepsToTheNearestMarksAreCounted) {
  const std::vector<MarkCandidate> marks = BoardOfCandidates(3, 3, 20);
  // Mark 8, at row 2 and column 2, beside marks 0 and 1.
  const LabelMap map(marks, {{0, 0, 0, 0}, {1, 0, 1, 0}});
  EXPECT_TRUE(AreStepsRight(marks, kStepRatio, map, {8, 2, 2, 0}));
  EXPECT_FALSE(AreStepsRight(marks, kStepRatio, map, {8, 1, 2, 0}));
  EXPECT_FALSE(AreStepsRight(marks, kStepRatio, map, {8, 2, 1, 0}));
  EXPECT_FALSE(AreStepsRight(marks, kStepRatio, map, {8, 2, 2, 1}));
}

TEST(LabelCheck, NothingIsRightFarAway) {
  const std::vector<MarkCandidate> marks = BoardOfCandidates(1, 12, 0);
  const LabelMap map(marks, {{0, 0, 0, 0}});
  EXPECT_FALSE(AreStepsRight(marks, kStepRatio, map, {11, 0, 11, 0}));
}

TEST(LabelCheck, OneArmOfAStrokeTellsItsSteps) {
  std::vector<MarkCandidate> marks = BoardOfCandidates(3, 3, 20);
  for (const std::size_t arm : {0u, 1u}) {
    marks[8].arms[arm].isSeen = false;
    marks[8].arms[arm].length = 0;
  }
  const LabelMap map(marks, {{0, 0, 0, 0}});
  EXPECT_TRUE(AreStepsRight(marks, kStepRatio, map, {8, 2, 2, 0}));
  EXPECT_FALSE(AreStepsRight(marks, kStepRatio, map, {8, 1, 1, 0}));
}

// Strokes along one line tell nothing of steps aside.
TEST(LabelCheck, FlatMarksAreNeverRight) {
  std::vector<MarkCandidate> marks = BoardOfCandidates(1, 2, 0);
  for (MarkCandidate& mark : marks) {
    mark.arms[1] = mark.arms[0];
    mark.arms[3] = mark.arms[2];
  }
  const LabelMap map(marks, {{0, 0, 0, 0}});
  EXPECT_FALSE(AreStepsRight(marks, kStepRatio, map, {1, 0, 1, 0}));
}

// Marks 28 and 34 stand in one row, 28 and 100 in one column, all too far apart to mislead each
// other.
TEST(LabelCheck, MisplacedMarksThatStandApartAreDroppedTogether) {
  std::vector<MarkCandidate> marks = BoardOfCandidates(12, 12, 0);
  std::vector<LabelledMark> labelled =
      LabelLargestComponent(marks, FindMarkLinks(marks, kSide, kSide));
  ASSERT_EQ(labelled.size(), 144u);
  for (const std::size_t mark : {28u, 34u, 100u}) {
    marks[mark].centre.x() += 55;
  }
  DropUnpredictedMarks(marks, kStepRatio, labelled);
  EXPECT_EQ(labelled.size(), 141u);
  EXPECT_EQ(CountOf(labelled, 28) + CountOf(labelled, 34) + CountOf(labelled, 100), 0);
}

TEST(LabelCheck, MisplacedMarkIsDropped) {
  std::vector<MarkCandidate> marks = BoardOfCandidates(5, 5, 0);
  std::vector<LabelledMark> labelled =
      LabelLargestComponent(marks, FindMarkLinks(marks, kSide, kSide));
  ASSERT_EQ(labelled.size(), 25u);
  marks[12].centre.x() += 55;
  DropUnpredictedMarks(marks, kStepRatio, labelled);
  EXPECT_EQ(labelled.size(), 24u);
  EXPECT_EQ(CountOf(labelled, 12), 0);
}

TEST(LabelCheck, BoardOfContradictionsIsDroppedAltogether) {
  std::vector<MarkCandidate> marks = BoardOfCandidates(5, 5, 0);
  std::vector<LabelledMark> labelled =
      LabelLargestComponent(marks, FindMarkLinks(marks, kSide, kSide));
  for (const std::size_t mark : {6u, 8u, 12u, 16u, 18u}) {
    marks[mark].centre.x() += 55;
  }
  DropUnpredictedMarks(marks, kStepRatio, labelled);
  EXPECT_TRUE(labelled.empty());
}

}  // namespace
}  // namespace quorvex::tests
