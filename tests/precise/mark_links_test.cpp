#include "precise/mark_links.h"

#include <gtest/gtest.h>

#include "tests/precise/mark_drawing.h"

namespace quorvex::tests {
namespace {

using precise::FindMarkLinks;
using precise::kNoMark;
using precise::MarkCandidate;
using precise::MarkLinks;

constexpr int kSide = 3000;  // px of the picture

int CountLinks(const MarkLinks& links) {
  int count = 0;
  for (const auto& arms : links.links) {
    for (const auto& link : arms) {
      count += link.mark != kNoMark ? 1 : 0;
    }
  }
  return count;
}

TEST(MarkLinks, NeighboursOfABoardAreLinkedBothWays) {
  for (const double degrees : {0.0, 33.0, 45.0}) {
    const MarkLinks links = FindMarkLinks(BoardOfCandidates(4, 5, degrees), kSide, kSide);
    EXPECT_EQ(CountLinks(links), 2 * (4 * 4 + 3 * 5));
    EXPECT_EQ(links.links[6][0].mark, 7);
    EXPECT_EQ(links.links[6][0].arm, 2);
    EXPECT_EQ(links.links[6][1].mark, 11);
    EXPECT_EQ(links.links[6][1].arm, 3);
    EXPECT_EQ(links.links[0][2].mark, kNoMark);
    // 100 px apart, two arms of 40 px; a ratio is known to its bin.
    EXPECT_NEAR(links.stepRatio, 1.25, 0.1);
  }
}

TEST(MarkLinks, LinkOverAnAbsentMarkIsNoStep) {
  std::vector<MarkCandidate> marks = BoardOfCandidates(4, 5, 10);
  marks.erase(marks.begin() + 6);
  const MarkLinks links = FindMarkLinks(marks, kSide, kSide);
  EXPECT_EQ(links.links[5][0].mark, kNoMark);
  EXPECT_EQ(CountLinks(links), 2 * (4 * 4 + 3 * 5 - 4));
}

TEST(MarkLinks, MarkThatDoesNotPointBackIsNotLinked) {
  std::vector<MarkCandidate> marks = BoardOfCandidates(4, 5, 0);
  for (std::size_t k = 0; k < 4; ++k) {
    marks[6].arms[k].direction = DirectionOf(45 + 90.0 * static_cast<double>(k));
  }
  const MarkLinks links = FindMarkLinks(marks, kSide, kSide);
  EXPECT_EQ(links.links[5][0].mark, kNoMark);
  EXPECT_EQ(CountLinks(links), 2 * (4 * 4 + 3 * 5 - 4));
}

TEST(MarkLinks, PalerOrShorterMarksAreNotLinked) {
  std::vector<MarkCandidate> marks = BoardOfCandidates(2, 2, 0);
  marks[1].arms[2].contrast = 20;
  marks[2].arms[3].length = 12;
  const MarkLinks links = FindMarkLinks(marks, kSide, kSide);
  EXPECT_EQ(links.links[0][0].mark, kNoMark);
  EXPECT_EQ(links.links[0][1].mark, kNoMark);
  EXPECT_EQ(CountLinks(links), 4);
}

TEST(MarkLinks, NothingIsLinkedWithoutMarks) {
  const MarkLinks links = FindMarkLinks({}, 16, 16);
  EXPECT_TRUE(links.links.empty());
  EXPECT_EQ(links.stepRatio, 0);
}

}  // namespace
}  // namespace quorvex::tests
