#include "tools/lists/point_edits.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "interface/quorvex.h"
#include "tools/errors.h"
#include "tools/lists/option_text.h"
#include "tools/lists/point_list.h"

namespace quorvex::tests {

using namespace tools;

namespace {

PointList PointsAt(const std::vector<Position>& positions) {
  PointList points;
  for (const Position& at : positions) AddPoint(at, points);
  return points;
}

// Both columns on the right claim the point between them, and nobody sees the last one, which lies
// too near to its neighbour: six points are numbered, but one of them twice.
TEST(PointEdits, RenumberRefusesToLoseAPoint) {
  const PointList points = PointsAt({{0, 0}, {100, 0}, {200, 0}, {0, 100}, {150, 100}, {203, 2}});
  PointList numbered = points;
  ASSERT_TRUE(ReAssignmentID(2, 3, numbered));
  PointList refused = points;
  EXPECT_THROW(Renumber({2, 3}, refused), NothingChanged);
  ASSERT_EQ(refused.size(), 6u);
  EXPECT_EQ(refused[5].x, 203);
  EXPECT_EQ(refused[0].id, -1);
}

TEST(PointEdits, RenumberRefusesAGridOfAnotherShape) {
  PointList points = PointsAt({{0, 0}, {100, 0}, {200, 0}, {0, 100}, {100, 100}, {200, 100}});
  EXPECT_THROW(Renumber({3, 2}, points), NothingChanged);
  EXPECT_THROW(Renumber({1, 6}, points), NothingChanged);
  EXPECT_EQ(points[0].id, -1);
  Renumber({2, 3}, points);
  EXPECT_EQ(points[0].id, 1);
}

TEST(PointEdits, CountsColumnsUpToTheWidestPicture) {
  PointList points;
  EXPECT_EQ(CountColumns(points), 0);
  points = PointsAt({{0, 0}, {1, 1}});
  EXPECT_EQ(CountColumns(points), 0);
  points[1].col = 4;
  EXPECT_EQ(CountColumns(points), 5);
  points[0].col = std::numeric_limits<int>::max();
  EXPECT_EQ(CountColumns(points), kMostGridLines);
}

TEST(PointEdits, PositionsBeyondAFloatAreRefused) {
  EXPECT_THROW(ToPointList({{1, 0, 0, 1e39, 0}}, "p.csv"), InputError);
  EXPECT_THROW(ToPointList({{1, 0, 0, 0, -1e39}}, "p.csv"), InputError);
  EXPECT_EQ(ToPointList({{1, 0, 0, 1e38, -1e38}}, "p.csv")[0].x, 1e38f);
}

TEST(OptionText, ReadsPositions) {
  for (const char* text : {"-3.5,7", "-3.5,7.0", "-35e-1,7"}) {
    EXPECT_EQ(ParsePosition(text).x, -3.5f) << text;
    EXPECT_EQ(ParsePosition(text).y, 7.0f) << text;
  }
}

TEST(OptionText, RefusesWhatIsNoPosition) {
  for (const char* text : {"", ",", "1", "1,", ",1", "1,2,3", "1;2", "1, 2", " 1,2", "1,2 ", "a,b",
                           "nan,1", "1,inf", "1e39,1", "1,0x10", "+1,2"}) {
    EXPECT_THROW(ParsePosition(text), InputError) << text;
  }
}

TEST(OptionText, ReadsAndWritesGridSizes) {
  EXPECT_EQ(ParseGridSize("9x7").rows, 9);
  EXPECT_EQ(ParseGridSize("9x7").columns, 7);
  EXPECT_EQ(GridSizeText(ParseGridSize("1x32768")), "1x32768");
  for (const char* text : {"", "x", "9", "9x", "x7", "9X7", "9x7x5", "9.5x7", "0x7", "9x0", "-9x7",
                           "9x32769", "9 x 7"}) {
    EXPECT_THROW(ParseGridSize(text), InputError) << text;
  }
}

}  // namespace
}  // namespace quorvex::tests
