#include "tools/lists/point_edits.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "interface/quorvex.h"

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

}  // namespace
}  // namespace quorvex::tests
