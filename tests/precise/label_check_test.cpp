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
