#include "tools/lists/board_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

// All marks of a grid, the first one in `row` and `col`.
PointsOfImage Grid(const char* image, int rows, int columns, int row = 0, int col = 0) {
  PointsOfImage list{image, 640, 480, {}};
  for (int r = row; r < row + rows; ++r) {
    for (int c = col; c < col + columns; ++c) {
      list.points.push_back({0, r, c, 10.0 * c, 20.0 * r, PointKind::kMeasured});
    }
  }
  return list;
}

TEST(BoardTable, HasAPlaceForEveryMark) {
  PointsOfImage list = Grid("a", 2, 3);
  list.points.erase(list.points.begin() + 1);
  list.points[1].kind = PointKind::kDoubtful;
  const BoardTable table = ArrangeOnBoard({list}, GridSize{2, 3});
  ASSERT_EQ(table.views[0].marks.size(), 6u);
  EXPECT_FALSE(table.views[0].marks[1]);
  EXPECT_EQ(table.views[0].marks[5]->x, 20);
  EXPECT_EQ(table.views[0].marks[5]->y, 20);
}

TEST(BoardTable, TakesTheLargestGridForTheBoard) {
  const BoardTable table = ArrangeOnBoard({Grid("a", 2, 3), Grid("b", 3, 3)}, std::nullopt);
  EXPECT_EQ(table.board.rows, 3);
  EXPECT_EQ(table.board.columns, 3);
  EXPECT_THAT(
      table.views[0].leftOut,
      HasSubstr("which of the board's 3 rows x 3 columns it shows cannot be told: marks are "
                "seen in 2 rows x 3 columns"));
  EXPECT_TRUE(table.views[0].marks.empty());
  EXPECT_EQ(table.views[1].leftOut, "");
}

TEST(BoardTable, BearsRowsUpToTheLargestInt) {
  PointsOfImage list = Grid("a", 1, 1);
  list.points.push_back(list.points[0]);
  list.points[1].row = std::numeric_limits<int>::max();
  EXPECT_THAT(ArrangeOnBoard({list}, GridSize{2, 1}).views[0].leftOut,
              HasSubstr("marks are seen in 2147483647 rows x 1 columns"));
}

TEST(BoardTable, TakesPartsWhosePlaceTheDetectionKnows) {
  PointsOfImage list = Grid("a", 2, 3, 1);
  list.facts = {{"fixed_rows", 1}, {"fixed_columns", 0}};
  EXPECT_EQ(ArrangeOnBoard({list}, GridSize{3, 3}).views[0].leftOut, "");
  EXPECT_FALSE(ArrangeOnBoard({list}, GridSize{3, 3}).views[0].marks[0]);
  EXPECT_NE(ArrangeOnBoard({list}, GridSize{3, 4}).views[0].leftOut, "");
  list.facts[0].second = 0;
  EXPECT_NE(ArrangeOnBoard({list}, GridSize{3, 3}).views[0].leftOut, "");
}

// The computed row may be one that the board has not got.
TEST(BoardTable, ComputedPointsAreNotSeenAndTellNothing) {
  PointsOfImage list = Grid("a", 3, 3);
  list.points[4].kind = PointKind::kFilled;
  EXPECT_FALSE(ArrangeOnBoard({list}, GridSize{3, 3}).views[0].marks[4]);
  for (std::size_t i = 0; i < 3; ++i) list.points[i].kind = PointKind::kPredicted;
  EXPECT_NE(ArrangeOnBoard({list}, GridSize{3, 3}).views[0].leftOut, "");
}

TEST(BoardTable, LeavesOutMoreThanTheBoardAndFailures) {
  EXPECT_THAT(ArrangeOnBoard({Grid("a", 3, 3, 1)}, GridSize{3, 3}).views[0].leftOut,
              HasSubstr("more than the board's"));
  PointsOfImage failed{"b", 0, 0, {}};
  failed.error = "too dark";
  EXPECT_EQ(ArrangeOnBoard({failed}, std::nullopt).views[0].leftOut, "too dark");
}

TEST(BoardTable, APlaceThatTwoPointsClaimIsEmptyAndPointsWithoutPlaceAreDropped) {
  PointsOfImage list = Grid("a", 2, 2);
  list.points.push_back(list.points[3]);
  list.points.push_back({-1, -1, -1, 5, 5, PointKind::kMeasured});
  const BoardTable table = ArrangeOnBoard({list}, GridSize{2, 2});
  EXPECT_TRUE(table.views[0].marks[0]);
  EXPECT_FALSE(table.views[0].marks[3]);
}

}  // namespace
}  // namespace quorvex::tests
