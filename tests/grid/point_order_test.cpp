#include "grid/point_order.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

PointList Sample() {
  return {MakePoint(1, 0, 0, 3.0f, 20.0f), MakePoint(2, 0, 0, -1.0f, 30.0f),
          MakePoint(3, 0, 0, 2.0f, 10.0f)};
}

TEST(SortPointsByX, AscendsByX) {
  PointList points = Sample();
  SortPointsByX(points);
  EXPECT_EQ(Ids(points), (std::vector<int>{2, 3, 1}));
}

TEST(SortPointsByX, EqualValuesKeepTheirOrder) {
  PointList points = {MakePoint(1, 0, 0, 5.0f, 3.0f), MakePoint(2, 0, 0, 5.0f, 2.0f),
                      MakePoint(3, 0, 0, 4.0f, 1.0f), MakePoint(4, 0, 0, 5.0f, 0.0f)};
  SortPointsByX(points);
  EXPECT_EQ(Ids(points), (std::vector<int>{3, 1, 2, 4}));
}

TEST(SortPointsByX, EmptyAndSingleListsStay) {
  PointList points;
  SortPointsByX(points);
  EXPECT_TRUE(points.empty());
  points.push_back(MakePoint(1, 0, 0, 1.0f, 1.0f));
  SortPointsByX(points);
  EXPECT_EQ(Ids(points), std::vector<int>{1});
}

TEST(SortPointsByX, TheWholeRecordTravels) {
  PointList points = Sample();
  std::memset(points[0].reservedAfterCol, 0x5a, sizeof points[0].reservedAfterCol);
  std::memset(points[0].reservedAfterY, 0xa5, sizeof points[0].reservedAfterY);
  const CalibrationPoint first = points[0];
  SortPointsByX(points);
  EXPECT_EQ(std::memcmp(&points[2], &first, sizeof first), 0);
}

TEST(SortPointsByY, DirectionOneAscends) {
  PointList points = Sample();
  SortPointsByY(points, static_cast<SortDirection>(1));
  EXPECT_EQ(Ids(points), (std::vector<int>{3, 1, 2}));
}

TEST(SortPointsByY, DirectionTwoDescends) {
  PointList points = Sample();
  SortPointsByY(points, static_cast<SortDirection>(2));
  EXPECT_EQ(Ids(points), (std::vector<int>{2, 1, 3}));
}

TEST(SortPointsByY, OtherDirectionsLeaveTheOrder) {
  for (const int direction : {0, 3, -1}) {
    PointList points = Sample();
    SortPointsByY(points, static_cast<SortDirection>(direction));
    EXPECT_EQ(Ids(points), (std::vector<int>{1, 2, 3})) << direction;
  }
}

TEST(SortPointsByY, EqualValuesKeepTheirOrderInBothDirections) {
  for (const SortDirection direction : {kAscending, kDescending}) {
    PointList points = {MakePoint(1, 0, 0, 3.0f, 7.0f), MakePoint(2, 0, 0, 2.0f, 7.0f),
                        MakePoint(3, 0, 0, 1.0f, 7.0f)};
    SortPointsByY(points, direction);
    EXPECT_EQ(Ids(points), (std::vector<int>{1, 2, 3})) << direction;
  }
}

}  // namespace
}  // namespace quorvex::tests
