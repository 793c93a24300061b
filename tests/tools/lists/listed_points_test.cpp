#include "tools/lists/listed_points.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <utility>

namespace quorvex::tests {

using namespace tools;

namespace {

// A full grid but for some places, each a row and a column.
PointsOfImage GridWithout(int rows, int columns, const std::set<std::pair<int, int>>& empty) {
  PointsOfImage list;
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      if (empty.count({row, column}) == 0) {
        list.points.push_back({row * columns + column + 1, row, column, 5.0 * column, 5.0 * row});
      }
    }
  }
  return list;
}

TEST(DescribePoints, CountsAFullGrid) {
  PointsOfImage list = GridWithout(9, 9, {});
  EXPECT_EQ(DescribePoints(list), "81 points, 9 rows x 9 columns");
  list.image = "a.bmp";
  EXPECT_EQ(DescribePoints(list), "a.bmp: 81 points, 9 rows x 9 columns");
  EXPECT_EQ(DescribePoints(GridWithout(1, 1, {})), "1 point, 1 row x 1 column");
  EXPECT_EQ(DescribePoints({}), "0 points, 0 rows x 0 columns");
}

TEST(DescribePoints, CountsTheColumnsThatTheIdsCountAndNamesTheEmptyOne) {
  EXPECT_EQ(DescribePoints(GridWithout(2, 10, {{0, 8}, {1, 8}})),
            "18 points, 2 rows x 10 columns, empty: column 8");
  EXPECT_EQ(DescribePoints(GridWithout(3, 3, {{0, 0}, {0, 1}, {0, 2}, {1, 0}, {2, 0}})),
            "4 points, 3 rows x 3 columns, empty: row 0; column 0");
}

TEST(DescribePoints, NamesEmptyPlaces) {
  EXPECT_EQ(DescribePoints(GridWithout(9, 9, {{2, 4}})),
            "80 points, 9 rows x 9 columns, empty: place (2,4)");
  EXPECT_EQ(DescribePoints(GridWithout(3, 4, {{0, 2}, {1, 2}, {2, 2}, {0, 0}, {2, 3}})),
            "7 points, 3 rows x 4 columns, empty: column 2; places (0,0), (2,3)");
}

TEST(DescribePoints, CountsManyEmptyPlaces) {
  EXPECT_EQ(DescribePoints(GridWithout(9, 9, {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}})),
            "75 points, 9 rows x 9 columns, empty: 6 places");
  PointsOfImage list;
  list.points = {{1, 0, 0, 1, 1}, {2, std::numeric_limits<int>::max(), 7, 1, 1}};
  EXPECT_EQ(DescribePoints(list),
            "2 points, 2147483648 rows x 8 columns, empty: 2147483646 rows; 6 columns; places "
            "(0,7), (2147483647,0)");
}

TEST(DescribePoints, CountsPointsWithoutAPlace) {
  PointsOfImage list = GridWithout(2, 2, {});
  list.points.push_back({-1, -1, -1, 300, 400});
  EXPECT_EQ(DescribePoints(list), "5 points, 2 rows x 2 columns, 1 without a place");
}

TEST(DescribePoints, EndsWithWhatTheLabelsCountFrom) {
  PointsOfImage list = GridWithout(2, 2, {});
  list.labels = "rows and columns are the board's";
  EXPECT_EQ(DescribePoints(list), "4 points, 2 rows x 2 columns; rows and columns are the board's");
}

TEST(DescribePoints, SaysWhyThereAreNone) {
  EXPECT_EQ(DescribePoints({"a.bmp", 0, 0, {}, "no target was seen"}), "a.bmp: no target was seen");
}

TEST(HasKinds, WhenOnePointDoes) {
  PointsOfImage list = GridWithout(2, 2, {});
  EXPECT_FALSE(HasKinds(list.points));
  list.points[3].kind = PointKind::kFilled;
  EXPECT_TRUE(HasKinds(list.points));
}

}  // namespace
}  // namespace quorvex::tests
