// The operator's corrections, as a host makes them through the public header.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include "interface/quorvex.h"
#include "tests/support/points.h"
#include "tests/support/reserved_bytes.h"

namespace quorvex::tests {
namespace {

const float kNan = std::numeric_limits<float>::quiet_NaN();

// Whether the deletion at (100, 100) removes a lone point there.
bool IsDeleted(float x, float y) {
  PointList points = {At(x, y)};
  const bool isDeleted = DeleteCalibrationPt_Coordinate(100.0f, 100.0f, points);
  EXPECT_EQ(points.empty(), isDeleted);
  return isDeleted;
}

struct Place {
  int row = -7;
  int col = -8;
  float x = -9.0f;
  float y = -10.0f;
};

bool Query(int id, PointList& points, Place& place) {
  return QueryCalibrationPt_ID(id, place.row, place.col, place.x, place.y, points);
}

TEST(PointEditing, OnlyAddingSucceedsOnAnEmptyList) {
  PointList points;
  Place place;
  EXPECT_FALSE(Query(1, points, place));
  EXPECT_FALSE(DeleteCalibrationPt_ID(1, points));
  EXPECT_FALSE(DeleteCalibrationPt_Coordinate(0.0f, 0.0f, points));
  EXPECT_FALSE(AlterCalibrationPt_Coordinate(1, 2, 3, 4.0f, 5.0f, points));
  EXPECT_TRUE(points.empty());
  EXPECT_TRUE(AddCalibrationPt_Coordinate(0.0f, 0.0f, points));
  EXPECT_EQ(points.size(), 1u);
}

TEST(QueryCalibrationPtId, ReportsTheFirstPointWithTheId) {
  PointList points = {MakePoint(4, 1, 1, 1.0f, 1.0f), MakePoint(5, 2, 3, 10.25f, 20.5f),
                      MakePoint(5, 6, 7, 30.0f, 40.0f)};
  Place place;
  EXPECT_TRUE(Query(5, points, place));
  EXPECT_EQ(place.row, 2);
  EXPECT_EQ(place.col, 3);
  EXPECT_EQ(Bits(place.x), Bits(10.25f));
  EXPECT_EQ(Bits(place.y), Bits(20.5f));
}

TEST(QueryCalibrationPtId, LeavesTheResultsWhereNoPointHasTheId) {
  PointList points = {MakePoint(4, 1, 1, 1.0f, 1.0f)};
  Place place;
  EXPECT_FALSE(Query(5, points, place));
  EXPECT_EQ(place.row, -7);
  EXPECT_EQ(place.col, -8);
  EXPECT_EQ(Bits(place.x), Bits(-9.0f));
  EXPECT_EQ(Bits(place.y), Bits(-10.0f));
}

TEST(QueryCalibrationPtId, ChangesNoPoint) {
  PointList points = {Marked(MakePoint(5, 2, 3, 1.0f, 2.0f), 1)};
  const PointList before = points;
  Place place;
  EXPECT_TRUE(Query(5, points, place));
  EXPECT_EQ(std::memcmp(points.data(), before.data(), sizeof before[0]), 0);
}

TEST(QueryCalibrationPtId, TheIdOfAddedPointsReportsTheFirstOfThem) {
  PointList points = {MakePoint(1, 0, 0, 1.0f, 1.0f)};
  AddCalibrationPt_Coordinate(30.0f, 31.0f, points);
  AddCalibrationPt_Coordinate(40.0f, 41.0f, points);
  Place place;
  EXPECT_TRUE(Query(-1, points, place));
  EXPECT_EQ(place.row, -1);
  EXPECT_EQ(place.col, -1);
  EXPECT_EQ(Bits(place.x), Bits(30.0f));
  EXPECT_EQ(Bits(place.y), Bits(31.0f));
}

TEST(DeleteCalibrationPtId, RemovesEveryPointWithTheIdAndKeepsTheOrder) {
  PointList points;
  for (const int id : {7, 3, 7, 7, 1, 2, 7}) {
    points.push_back(Marked(MakePoint(id, id, id, 1.0f, 1.0f), 10 * id));
  }
  EXPECT_TRUE(DeleteCalibrationPt_ID(7, points));
  EXPECT_EQ(Ids(points), (std::vector<int>{3, 1, 2}));
  for (const CalibrationPoint& point : points) {
    EXPECT_EQ(point.row, point.id);
    EXPECT_TRUE(IsMarked(point, 10 * point.id)) << point.id;
  }
}

TEST(DeleteCalibrationPtId, MissingIdRemovesNothing) {
  PointList points = {MakePoint(1, 0, 0, 1.0f, 1.0f), MakePoint(2, 0, 0, 1.0f, 1.0f)};
  EXPECT_FALSE(DeleteCalibrationPt_ID(3, points));
  EXPECT_EQ(Ids(points), (std::vector<int>{1, 2}));
}

TEST(DeleteCalibrationPtId, TheIdOfAddedPointsRemovesThemAll) {
  PointList points;
  AddCalibrationPt_Coordinate(1.0f, 1.0f, points);
  points.push_back(MakePoint(9, 0, 8, 2.0f, 2.0f));
  AddCalibrationPt_Coordinate(3.0f, 3.0f, points);
  EXPECT_TRUE(DeleteCalibrationPt_ID(-1, points));
  EXPECT_EQ(Ids(points), std::vector<int>{9});
}

TEST(DeleteCalibrationPtCoordinate, TheReachIsASquare) {
  EXPECT_TRUE(IsDeleted(108.9f, 91.1f));
  EXPECT_TRUE(IsDeleted(100.0f, 100.0f));
}

TEST(DeleteCalibrationPtCoordinate, NinePixelsAwayAPointStays) {
  EXPECT_FALSE(IsDeleted(109.0f, 100.0f));
  EXPECT_FALSE(IsDeleted(91.0f, 100.0f));
  EXPECT_FALSE(IsDeleted(100.0f, 109.0f));
  EXPECT_FALSE(IsDeleted(100.0f, 91.0f));
}

TEST(DeleteCalibrationPtCoordinate, TheNextFloatInsideGoes) {
  EXPECT_TRUE(IsDeleted(std::nextafter(109.0f, 0.0f), 100.0f));
  EXPECT_TRUE(IsDeleted(std::nextafter(91.0f, 200.0f), 100.0f));
  EXPECT_TRUE(IsDeleted(100.0f, std::nextafter(109.0f, 0.0f)));
  EXPECT_TRUE(IsDeleted(100.0f, std::nextafter(91.0f, 200.0f)));
}

// Floats above 2^24 are 2 apart, above 2^25 they are 4 apart: 16777216 + 9 becomes 16777224 and
// 33554448 - 9 becomes 33554440. Points there lie on the bound although they are 8 pixels away.
TEST(DeleteCalibrationPtCoordinate, TheBoundsAreRoundedToSinglePrecision) {
  const auto isDeletedFrom = [](float x, float y, const CalibrationPoint& point) {
    PointList points = {point};
    return DeleteCalibrationPt_Coordinate(x, y, points);
  };
  EXPECT_FALSE(isDeletedFrom(16777216.0f, 0.0f, At(16777224.0f, 0.0f)));
  EXPECT_TRUE(isDeletedFrom(16777216.0f, 0.0f, At(16777222.0f, 0.0f)));
  EXPECT_FALSE(isDeletedFrom(0.0f, 16777216.0f, At(0.0f, 16777224.0f)));
  EXPECT_TRUE(isDeletedFrom(0.0f, 16777216.0f, At(0.0f, 16777222.0f)));
  EXPECT_FALSE(isDeletedFrom(33554448.0f, 0.0f, At(33554440.0f, 0.0f)));
  EXPECT_TRUE(isDeletedFrom(33554448.0f, 0.0f, At(33554444.0f, 0.0f)));
  EXPECT_FALSE(isDeletedFrom(0.0f, 33554448.0f, At(0.0f, 33554440.0f)));
  EXPECT_TRUE(isDeletedFrom(0.0f, 33554448.0f, At(0.0f, 33554444.0f)));
}

TEST(DeleteCalibrationPtCoordinate, RemovesNeighboursInTheListAndKeepsTheOrder) {
  PointList points = {
      Marked(MakePoint(1, 0, 0, 50.0f, 100.0f), 1),  Marked(MakePoint(2, 0, 0, 101.0f, 100.0f), 2),
      Marked(MakePoint(3, 0, 0, 102.0f, 100.0f), 3), Marked(MakePoint(4, 0, 0, 150.0f, 100.0f), 4),
      Marked(MakePoint(5, 0, 0, 100.0f, 200.0f), 5), Marked(MakePoint(6, 0, 0, 100.0f, 95.0f), 6)};
  EXPECT_TRUE(DeleteCalibrationPt_Coordinate(100.0f, 100.0f, points));
  EXPECT_EQ(Ids(points), (std::vector<int>{1, 4, 5}));
  for (const CalibrationPoint& point : points) {
    EXPECT_TRUE(IsMarked(point, point.id)) << point.id;
  }
}

TEST(DeleteCalibrationPtCoordinate, APositionThatIsNotANumberIsNeverInside) {
  EXPECT_FALSE(IsDeleted(kNan, 100.0f));
  EXPECT_FALSE(IsDeleted(100.0f, kNan));
  PointList points = {At(100.0f, 100.0f)};
  EXPECT_FALSE(DeleteCalibrationPt_Coordinate(kNan, 100.0f, points));
  EXPECT_EQ(points.size(), 1u);
}

TEST(AddCalibrationPtCoordinate, AppendsAPointWithoutAPlace) {
  PointList points = {Marked(MakePoint(1, 2, 3, 4.0f, 5.0f), 9)};
  EXPECT_TRUE(AddCalibrationPt_Coordinate(10.5f, 20.25f, points));
  ASSERT_EQ(points.size(), 2u);
  EXPECT_EQ(points[0].id, 1);
  EXPECT_TRUE(IsMarked(points[0], 9));
  EXPECT_EQ(points[1].id, -1);
  EXPECT_EQ(points[1].row, -1);
  EXPECT_EQ(points[1].col, -1);
  EXPECT_EQ(Bits(points[1].x), Bits(10.5f));
  EXPECT_EQ(Bits(points[1].y), Bits(20.25f));
}

TEST(AddCalibrationPtCoordinate, ReservedBytesAreZero) {
  PointList points = {Marked(CalibrationPoint(), 1)};  // leaves a pattern in the list's memory
  points.clear();
  EXPECT_TRUE(AddCalibrationPt_Coordinate(1.0f, 1.0f, points));
  EXPECT_EQ(std::vector<int>(points[0].reservedAfterCol, points[0].reservedAfterCol + 12),
            std::vector<int>(12, 0));
  EXPECT_EQ(std::vector<int>(points[0].reservedAfterY, points[0].reservedAfterY + 32),
            std::vector<int>(32, 0));
}

TEST(AddCalibrationPtCoordinate, AnyPositionIsTakenAlsoTwice) {
  PointList points;
  EXPECT_TRUE(AddCalibrationPt_Coordinate(-5.0f, 1e9f, points));
  EXPECT_TRUE(AddCalibrationPt_Coordinate(-5.0f, 1e9f, points));
  EXPECT_TRUE(AddCalibrationPt_Coordinate(kNan, kNan, points));
  EXPECT_EQ(Ids(points), (std::vector<int>{-1, -1, -1}));
}

TEST(AlterCalibrationPtCoordinate, OverwritesTheFirstPointWithTheId) {
  PointList points = {Marked(MakePoint(4, 1, 1, 1.0f, 1.0f), 4),
                      Marked(MakePoint(5, 2, 3, 10.0f, 20.0f), 5),
                      Marked(MakePoint(5, 2, 3, 10.0f, 20.0f), 6)};
  PointList expected = points;
  expected[1].row = 8;
  expected[1].col = 9;
  expected[1].x = -0.5f;
  expected[1].y = 1e6f;
  EXPECT_TRUE(AlterCalibrationPt_Coordinate(5, 8, 9, -0.5f, 1e6f, points));
  // Id, order, reserved bytes and the other points stay, whatever id the new place would give.
  ASSERT_EQ(points.size(), 3u);
  EXPECT_EQ(std::memcmp(points.data(), expected.data(), 3 * sizeof expected[0]), 0);
}

TEST(AlterCalibrationPtCoordinate, MissingIdChangesNothing) {
  PointList points = {Marked(MakePoint(4, 1, 1, 1.0f, 1.0f), 4)};
  const PointList before = points;
  EXPECT_FALSE(AlterCalibrationPt_Coordinate(5, 8, 9, 2.0f, 3.0f, points));
  EXPECT_EQ(std::memcmp(points.data(), before.data(), sizeof before[0]), 0);
}

}  // namespace
}  // namespace quorvex::tests
