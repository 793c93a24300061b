#include "preprocess/outline_filter.h"

#include <gtest/gtest.h>

namespace quorvex::tests {
namespace {

// Points to the right of the centre (1000, 500) at these distances.
OutlineList AtDistances(const std::vector<int>& distances) {
  OutlineList outline;
  for (const int distance : distances) {
    outline.push_back({1000 + distance, 500});
  }
  return outline;
}

OutlineList Filtered(OutlineList outline) {
  EXPECT_TRUE(FilterOutlinePoints(outline, 1000, 500));
  return outline;
}

TEST(OutlineFilter, PointFarInwardOfBothNeighboursIsRemoved) {
  EXPECT_EQ(Filtered(AtDistances({300, 150, 300})), AtDistances({300, 300}));
}

TEST(OutlineFilter, HundredPixelsInwardStayAndOneMoreIsRemoved) {
  EXPECT_EQ(Filtered(AtDistances({300, 200, 300})), AtDistances({300, 200, 300}));
  EXPECT_EQ(Filtered(AtDistances({300, 199, 300})), AtDistances({300, 300}));
}

TEST(OutlineFilter, PointMustBeInwardOfBothNeighbours) {
  EXPECT_EQ(Filtered(AtDistances({300, 150, 250})), AtDistances({300, 150, 250}));
  EXPECT_EQ(Filtered(AtDistances({250, 150, 300})), AtDistances({250, 150, 300}));
  EXPECT_EQ(Filtered(AtDistances({300, 150, 150, 300})), AtDistances({300, 150, 150, 300}));
}

TEST(OutlineFilter, PointFarOutwardStays) {
  EXPECT_EQ(Filtered(AtDistances({300, 900, 300})), AtDistances({300, 900, 300}));
}

TEST(OutlineFilter, FirstAndLastPointStay) {
  EXPECT_EQ(Filtered(AtDistances({100, 300, 300, 100})), AtDistances({100, 300, 300, 100}));
}

TEST(OutlineFilter, NeighboursAreThoseBeforeAnyRemoval) {
  // Once 100 is gone, 250 would lie between 400 and 400.
  EXPECT_EQ(Filtered(AtDistances({400, 250, 100, 400})), AtDistances({400, 250, 400}));
}

TEST(OutlineFilter, SeveralSpikesAreRemovedAndTheOrderIsKept) {
  EXPECT_EQ(Filtered(AtDistances({301, 100, 302, 100, 303, 304, 100, 305})),
            AtDistances({301, 302, 303, 304, 305}));
}

TEST(OutlineFilter, DistancesAreRoundedToPixels) {
  // 98.99 counts as 99, which is 101 nearer than 200; 99.70 counts as 100.
  EXPECT_EQ(Filtered({{1200, 500}, {1070, 570}, {1200, 500}}).size(), 2u);
  EXPECT_EQ(Filtered({{1200, 500}, {1070, 571}, {1200, 500}}).size(), 3u);
}

TEST(OutlineFilter, DistancesOfFarPointsDoNotOverflow) {
  constexpr int kFar = 2'000'000'000;
  EXPECT_EQ(Filtered({{kFar, kFar}, {-1000, 0}, {kFar, -kFar}}).size(), 2u);
}

TEST(OutlineFilter, FewerThanThreePointsAreRefused) {
  for (const OutlineList& before : {OutlineList(), AtDistances({300}), AtDistances({300, 100})}) {
    OutlineList outline = before;
    EXPECT_FALSE(FilterOutlinePoints(outline, 1000, 500));
    EXPECT_EQ(outline, before);
  }
}

}  // namespace
}  // namespace quorvex::tests
