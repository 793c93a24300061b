#include "postprocess/rearrangement.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <vector>

#include "tests/support/points.h"
#include "tests/support/reserved_bytes.h"

namespace quorvex::tests {
namespace {

using Rearrange = void (*)(PointList&, int, int);
constexpr Rearrange kBoth[] = {&LeftPtsRearrange, &RightPtsRearrange};
constexpr int kUnused = 0;

// A point of a former column; its x tells the points apart.
CalibrationPoint InColumn(int col, float y, float x = 0.0f) { return MakePoint(-5, -6, col, x, y); }

// What is left of a list: y, id, row and col of each point in order.
std::vector<std::vector<int>> Numbers(const PointList& points) {
  std::vector<std::vector<int>> numbers;
  for (const CalibrationPoint& point : points) {
    numbers.push_back({static_cast<int>(point.y), point.id, point.row, point.col});
  }
  return numbers;
}

std::vector<std::vector<int>> Rearranged(Rearrange rearrange, PointList points, int n) {
  rearrange(points, kUnused, n);
  return Numbers(points);
}

using Rows = std::vector<std::vector<int>>;

TEST(PtsRearrange, AnEmptyListStaysEmpty) {
  for (const Rearrange rearrange : kBoth) {
    for (const int n : {3, 0, -1, INT_MAX, INT_MIN}) {
      EXPECT_TRUE(Rearranged(rearrange, {}, n).empty());
    }
  }
}

TEST(PtsRearrange, PointsWithoutAColumnAreDropped) {
  for (const Rearrange rearrange : kBoth) {
    EXPECT_TRUE(Rearranged(rearrange, {InColumn(-1, 1.0f), InColumn(-1, 2.0f)}, 3).empty());
  }
}

TEST(PtsRearrange, ColumnsOutsideTheCountAreDropped) {
  const PointList points = {InColumn(-1, 1.0f), InColumn(2, 2.0f), InColumn(3, 3.0f),
                            InColumn(INT_MAX, 4.0f), InColumn(INT_MIN, 5.0f)};
  EXPECT_EQ(Rearranged(&LeftPtsRearrange, points, 3), (Rows{{2, 7, 2, 0}}));
  EXPECT_EQ(Rearranged(&RightPtsRearrange, points, 3), (Rows{{2, 9, 2, 2}}));
}

TEST(PtsRearrange, ACountBelowOneEmptiesTheList) {
  for (const Rearrange rearrange : kBoth) {
    for (const int n : {0, -1, INT_MIN}) {
      EXPECT_TRUE(Rearranged(rearrange, {InColumn(0, 1.0f), InColumn(1, 2.0f)}, n).empty());
    }
  }
}

TEST(LeftPtsRearrange, CountsAColumnFromTheLargestYUp) {
  EXPECT_EQ(Rearranged(&LeftPtsRearrange,
                       {InColumn(1, 10.0f), InColumn(1, 30.0f), InColumn(1, 20.0f)}, 3),
            (Rows{{30, 4, 1, 0}, {20, 5, 1, 1}, {10, 6, 1, 2}}));
}

TEST(RightPtsRearrange, CountsAColumnFromTheSmallestYDown) {
  EXPECT_EQ(Rearranged(&RightPtsRearrange,
                       {InColumn(1, 10.0f), InColumn(1, 30.0f), InColumn(1, 20.0f)}, 3),
            (Rows{{10, 6, 1, 2}, {20, 5, 1, 1}, {30, 4, 1, 0}}));
}

TEST(PtsRearrange, AColumnOfFewerPointsIsCountedFromItsOwnEnd) {
  const PointList points = {InColumn(0, 10.0f), InColumn(0, 20.0f)};
  EXPECT_EQ(Rearranged(&LeftPtsRearrange, points, 4), (Rows{{20, 1, 0, 0}, {10, 2, 0, 1}}));
  EXPECT_EQ(Rearranged(&RightPtsRearrange, points, 4), (Rows{{10, 4, 0, 3}, {20, 3, 0, 2}}));
}

TEST(PtsRearrange, AColumnOfMorePointsRunsOnPastTheCount) {
  const PointList points = {InColumn(1, 10.0f), InColumn(1, 20.0f), InColumn(1, 30.0f)};
  EXPECT_EQ(Rearranged(&LeftPtsRearrange, points, 2),
            (Rows{{30, 3, 1, 0}, {20, 4, 1, 1}, {10, 5, 1, 2}}));
  EXPECT_EQ(Rearranged(&RightPtsRearrange, points, 2),
            (Rows{{10, 4, 1, 1}, {20, 3, 1, 0}, {30, 2, 1, -1}}));
}

// The 2 x 2 grid with one more column that the count leaves out.
TEST(PtsRearrange, TheListIsOrderedByRowAndWithinIt) {
  const PointList points = {InColumn(2, 15.0f), InColumn(1, 11.0f), InColumn(0, 20.0f),
                            InColumn(0, 10.0f), InColumn(1, 21.0f)};
  EXPECT_EQ(Rearranged(&LeftPtsRearrange, points, 2),
            (Rows{{20, 1, 0, 0}, {10, 2, 0, 1}, {21, 3, 1, 0}, {11, 4, 1, 1}}));
  EXPECT_EQ(Rearranged(&RightPtsRearrange, points, 2),
            (Rows{{10, 2, 0, 1}, {20, 1, 0, 0}, {11, 4, 1, 1}, {21, 3, 1, 0}}));
}

TEST(PtsRearrange, PointsOfEqualYKeepTheirOrderInTheList) {
  for (const Rearrange rearrange : kBoth) {
    PointList points = {InColumn(0, 10.0f, 1.0f), InColumn(0, 10.0f, 2.0f),
                        InColumn(0, 10.0f, 3.0f)};
    rearrange(points, kUnused, 3);
    ASSERT_EQ(points.size(), 3u);
    for (int i = 0; i < 3; ++i) {
      const CalibrationPoint& point = points[static_cast<std::size_t>(i)];
      EXPECT_EQ(Bits(point.x), Bits(static_cast<float>(i + 1)));
      EXPECT_EQ(point.col, rearrange == &LeftPtsRearrange ? i : 2 - i);
    }
  }
}

TEST(PtsRearrange, TheFirstCountIsIgnored) {
  for (const Rearrange rearrange : kBoth) {
    for (const int unused : {0, 1, -1, INT_MAX, INT_MIN}) {
      PointList points = {InColumn(1, 10.0f), InColumn(1, 20.0f)};
      rearrange(points, unused, 2);
      EXPECT_EQ(Numbers(points),
                Rearranged(rearrange, {InColumn(1, 10.0f), InColumn(1, 20.0f)}, 2));
    }
  }
}

TEST(PtsRearrange, PositionAndReservedBytesStay) {
  for (const Rearrange rearrange : kBoth) {
    const CalibrationPoint before = Marked(MakePoint(1, 2, 0, 3.5f, -4.25f), 100);
    PointList points = {before};
    rearrange(points, kUnused, 1);
    ASSERT_EQ(points.size(), 1u);
    CalibrationPoint expected = before;
    expected.id = 1;
    expected.row = 0;
    EXPECT_EQ(std::memcmp(points.data(), &expected, sizeof expected), 0);
  }
}

TEST(PtsRearrange, IdsWrapAroundIn32Bits) {
  // 5 * 1000000000 + 1 + 0 and 5 * 1000000000 + 1 + 999999999, less 2^32.
  constexpr int n = 1000000000;
  EXPECT_EQ(Rearranged(&LeftPtsRearrange, {InColumn(5, 1.0f)}, n), (Rows{{1, 705032705, 5, 0}}));
  EXPECT_EQ(Rearranged(&RightPtsRearrange, {InColumn(5, 1.0f)}, n),
            (Rows{{1, 1705032704, 5, 999999999}}));
}

}  // namespace
}  // namespace quorvex::tests
