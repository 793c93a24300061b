#include "precise/mark_candidates.h"

#include <gtest/gtest.h>

#include "tests/precise/mark_drawing.h"

namespace quorvex::tests {
namespace {

using precise::BuildPyramid;
using precise::FindMarkCandidates;
using precise::GrayPicture;
using precise::MarkCandidate;

constexpr double kNoise = 0.5;

std::vector<MarkCandidate> CandidatesOf(const GrayPicture& picture) {
  return FindMarkCandidates(BuildPyramid(picture), kNoise);
}

// The one candidate of a picture with one mark.
MarkCandidate OnlyCandidate(const DrawnMark& mark) {
  GrayPicture picture(300, 300, kBoardLevel);
  DrawMark(mark, picture);
  const std::vector<MarkCandidate> marks = CandidatesOf(picture);
  EXPECT_EQ(marks.size(), 1u);
  return marks.empty() ? MarkCandidate() : marks[0];
}

TEST(MarkCandidates, MarkIsFoundWithItsArmsClockwise) {
  const MarkCandidate mark = OnlyCandidate({{150.4, 149.7}, {25, 115, 205, 295}, 50});
  EXPECT_LT((mark.centre - Eigen::Vector2d(150.4, 149.7)).norm(), 0.3);
  ASSERT_EQ(mark.ArmsSeen(), 4);
  for (std::size_t k = 0; k < 4; ++k) {
    EXPECT_GT(precise::Cross(mark.arms[k].direction, mark.arms[(k + 1) % 4].direction), 0.99);
    EXPECT_NEAR(mark.arms[k].length, 50, 3);
  }
}

TEST(MarkCandidates, ShortArmsAreFoundAtFullSize) {
  const MarkCandidate mark = OnlyCandidate({{150.4, 149.7}, {25, 115, 205, 295}, 10, 2});
  EXPECT_EQ(mark.level, 0);
  EXPECT_EQ(mark.ArmsSeen(), 4);
  EXPECT_LT((mark.centre - Eigen::Vector2d(150.4, 149.7)).norm(), 0.3);
}

TEST(MarkCandidates, ThickStrokesAreFoundAtQuarterSize) {
  const MarkCandidate mark = OnlyCandidate({{150.4, 149.7}, {25, 115, 205, 295}, 90, 14});
  EXPECT_EQ(mark.level, 2);
  EXPECT_EQ(mark.ArmsSeen(), 4);
  EXPECT_LT((mark.centre - Eigen::Vector2d(150.4, 149.7)).norm(), 0.5);
}

TEST(MarkCandidates, ObliqueMarkIsFoundOnceAndInItsMiddle) {
  const MarkCandidate mark = OnlyCandidate({{150.4, 149.7}, {25, 60, 205, 240}, 60});
  EXPECT_EQ(mark.ArmsSeen(), 4);
  EXPECT_LT((mark.centre - Eigen::Vector2d(150.4, 149.7)).norm(), 0.8);
}

TEST(MarkCandidates, MarkInTheFramesCornerHasTwoArms) {
  const MarkCandidate mark = OnlyCandidate({{6, 7}, {0, 90, 180, 270}, 50});
  EXPECT_EQ(mark.ArmsSeen(), 2);
  EXPECT_LT((mark.centre - Eigen::Vector2d(6, 7)).norm(), 0.6);
}

TEST(MarkCandidates, CornerOfTwoLinesInsideThePictureIsNone) {
  GrayPicture picture(300, 300, kBoardLevel);
  DrawMark({{150, 150}, {0, 90}, 50}, picture);
  EXPECT_TRUE(CandidatesOf(picture).empty());
}

TEST(MarkCandidates, LightMarkIsNone) {
  GrayPicture picture(300, 300, 40);
  DrawMark({{150, 150}, {25, 115, 205, 295}, 50, 4, 200}, picture);
  EXPECT_TRUE(CandidatesOf(picture).empty());
}

}  // namespace
}  // namespace quorvex::tests
