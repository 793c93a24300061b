#include "grid/dominant_group.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

CalibrationPoint Labelled(int id, int col, float x, float y = 0.0f) {
  return MakePoint(id, 0, col, x, y);
}

std::vector<int> SelectedIds(const PointList& candidates) {
  PointList selection;
  SelectDominantGroup(candidates, selection);
  return Ids(selection);
}

TEST(SelectDominantGroup, NothingToSelectFromIsFalse) {
  PointList selection = {Labelled(9, 0, 0.0f)};
  EXPECT_FALSE(SelectDominantGroup({}, selection));
  EXPECT_FALSE(SelectDominantGroup({Labelled(1, -1, 0.0f), Labelled(2, -5, 0.0f)}, selection));
  ASSERT_EQ(selection.size(), 1u);
  EXPECT_EQ(selection[0].id, 9);
}

TEST(SelectDominantGroup, TheMostFrequentLabelWinsWhereverItLies) {
  EXPECT_EQ(SelectedIds({Labelled(1, 0, 10.0f), Labelled(2, 1, 9e6f), Labelled(3, 0, 10.0f),
                         Labelled(4, 1, 9e6f), Labelled(5, 2, 10.0f), Labelled(6, 1, 9e6f)}),
            (std::vector<int>{2, 4, 6}));
}

TEST(SelectDominantGroup, AppendsToTheSelection) {
  PointList selection = {Labelled(9, 0, 0.0f)};
  EXPECT_TRUE(SelectDominantGroup({Labelled(1, 0, 1.0f)}, selection));
  ASSERT_EQ(selection.size(), 2u);
  EXPECT_EQ(selection[0].id, 9);
  EXPECT_EQ(selection[1].id, 1);
}

TEST(SelectDominantGroup, ATieGoesToTheGroupNearestToTheCentroid) {
  // The centroid is at x = 60.
  EXPECT_EQ(SelectedIds({Labelled(1, 0, 0.0f), Labelled(2, 0, 0.0f), Labelled(3, 1, 70.0f),
                         Labelled(4, 1, 170.0f)}),
            (std::vector<int>{3, 4}));
}

TEST(SelectDominantGroup, ADistanceOfTheSameWholePixelsDoesNotReplaceAnEarlierOne) {
  // Centroid 0: distances 5.75 and 5.25.
  EXPECT_EQ(SelectedIds({Labelled(1, 1, 5.25f), Labelled(2, 0, -5.75f), Labelled(3, 1, -5.25f),
                         Labelled(4, 0, 5.75f)}),
            (std::vector<int>{2, 4}));
  // Exactly 5 does not either, since 5 is not below 5.
  EXPECT_EQ(SelectedIds({Labelled(1, 1, 5.0f), Labelled(2, 0, -5.75f), Labelled(3, 1, -5.0f),
                         Labelled(4, 0, 5.75f)}),
            (std::vector<int>{2, 4}));
  EXPECT_EQ(SelectedIds({Labelled(1, 1, 4.75f), Labelled(2, 0, -5.75f), Labelled(3, 1, -4.75f),
                         Labelled(4, 0, 5.75f)}),
            (std::vector<int>{1, 3}));
}

TEST(SelectDominantGroup, PointsWithoutALabelMoveTheCentroid) {
  const PointList groups = {Labelled(1, 0, -100.0f), Labelled(2, 1, 100.0f)};
  EXPECT_EQ(SelectedIds(groups), std::vector<int>{1});
  PointList candidates = groups;
  candidates.push_back(Labelled(3, -1, 300.0f));
  candidates.push_back(Labelled(4, -1, 300.0f));
  candidates.push_back(Labelled(5, -1, 300.0f));
  EXPECT_EQ(SelectedIds(candidates), std::vector<int>{2});
}

TEST(SelectDominantGroup, BeyondTenThousandPixelsTheFirstCandidatesGroupWins) {
  EXPECT_EQ(SelectedIds({Labelled(1, 1, 10000.0f), Labelled(2, 0, -10000.0f)}),
            std::vector<int>{1});
  EXPECT_EQ(SelectedIds({Labelled(1, 1, 9999.0f), Labelled(2, 0, -9999.0f)}), std::vector<int>{2});
}

TEST(SelectDominantGroup, ThatGroupMayBeTheUnlabelled) {
  EXPECT_EQ(SelectedIds({Labelled(1, -1, 0.0f), Labelled(2, 0, -10000.0f), Labelled(3, -1, 0.0f),
                         Labelled(4, 1, 10000.0f)}),
            (std::vector<int>{1, 3}));
}

TEST(SelectDominantGroup, TheDistanceCountsBothCoordinates) {
  // Centroid (0, 0): 5 = root of 9 + 16 against 4.5.
  EXPECT_EQ(SelectedIds({Labelled(1, 0, 3.0f, 4.0f), Labelled(2, 0, -3.0f, -4.0f),
                         Labelled(3, 1, 4.5f), Labelled(4, 1, -4.5f)}),
            (std::vector<int>{3, 4}));
}

}  // namespace
}  // namespace quorvex::tests
