#include "grid/outlier_rejection.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

const QuadraticCoefficients kStale = {7.0f, 8.0f, 9.0f};

// A row at y = 50 with marks 100 pixels apart, ids from 0; `stray` lies `offset` pixels off.
PointList Row(int count, int stray, float offset) {
  PointList points;
  for (int i = 0; i < count; ++i) {
    points.push_back(
        MakePoint(i, 0, 0, 100.0f * static_cast<float>(i), i == stray ? 50.0f + offset : 50.0f));
  }
  return points;
}

PointList Transposed(PointList points) {
  for (CalibrationPoint& point : points) {
    std::swap(point.x, point.y);
  }
  return points;
}

TEST(OutlierRejection, OnePointFailsAndChangesNothing) {
  const PointList one = {At(3.0f, 4.0f)};
  QuadraticCoefficients curve = kStale;
  float largest = 5.0f;
  int index = 6;
  EXPECT_FALSE(RowFitMaxResidual(one, curve, largest, index));
  EXPECT_FALSE(ColumnFitMaxResidual(one, curve, largest, index));
  EXPECT_EQ(Bits(RowFitMeanResidual(one)), Bits(0.0f));
  EXPECT_EQ(Bits(ColumnFitMeanResidual(one)), Bits(0.0f));
  PointList points = one;
  EXPECT_FALSE(RejectRowOutliers(points, -1.0f, curve));
  EXPECT_FALSE(RejectColumnOutliers(points, -1.0f, curve));
  EXPECT_EQ(points.size(), 1u);
  EXPECT_EQ(Bits(curve.a), Bits(7.0f));
  EXPECT_EQ(Bits(largest), Bits(5.0f));
  EXPECT_EQ(index, 6);
}

// Two points of equal x leave the curve at zero, so that the residuals are the y themselves.
TEST(RowFitMaxResidual, ReportsTheAbsoluteValue) {
  QuadraticCoefficients curve = kStale;
  float largest = 0.0f;
  int index = -1;
  EXPECT_TRUE(RowFitMaxResidual({At(5.0f, 3.0f), At(5.0f, -7.0f)}, curve, largest, index));
  EXPECT_EQ(Bits(largest), Bits(7.0f));
  EXPECT_EQ(index, 1);
  EXPECT_EQ(Bits(curve.c), Bits(0.0f));
}

TEST(RowFitMaxResidual, EqualMaximaReportTheLowerIndex) {
  QuadraticCoefficients curve;
  float largest = 0.0f;
  int index = -1;
  EXPECT_TRUE(RowFitMaxResidual({At(5.0f, -7.0f), At(5.0f, 7.0f)}, curve, largest, index));
  EXPECT_EQ(index, 0);
}

TEST(RowFitMaxResidual, APerfectRowReportsIndexZero) {
  QuadraticCoefficients curve;
  float largest = 5.0f;
  int index = -1;
  EXPECT_TRUE(RowFitMaxResidual({At(0.0f, 0.0f), At(9.0f, 0.0f)}, curve, largest, index));
  EXPECT_EQ(Bits(largest), Bits(0.0f));
  EXPECT_EQ(index, 0);
}

TEST(RowFitMeanResidual, DividesTheSumByTheCount) {
  EXPECT_EQ(Bits(RowFitMeanResidual({At(5.0f, 3.0f), At(5.0f, -7.0f)})), Bits(5.0f));
  EXPECT_EQ(Bits(ColumnFitMeanResidual({At(3.0f, 5.0f), At(-7.0f, 5.0f)})), Bits(5.0f));
}

// One mark d pixels off in the middle of five equally spaced ones is 18/35 d off their parabola.
TEST(RowFitMaxResidual, FindsTheStrayOfFive) {
  QuadraticCoefficients curve;
  float largest = 0.0f;
  int index = -1;
  EXPECT_TRUE(RowFitMaxResidual(Row(5, 2, 35.0f), curve, largest, index));
  EXPECT_EQ(index, 2);
  EXPECT_NEAR(largest, 18.0f, 0.001f);
}

TEST(RejectRowOutliers, TwoPointsStay) {
  PointList points = {At(0.0f, 0.0f), At(10.0f, 5.0f)};
  QuadraticCoefficients curve = kStale;
  EXPECT_TRUE(RejectRowOutliers(points, 0.001f, curve));
  EXPECT_EQ(points.size(), 2u);
  EXPECT_EQ(Bits(curve.b), Bits(0.5f));
}

TEST(RejectRowOutliers, ThreePointsStayUpToRounding) {
  PointList points = {At(0.0f, 0.0f), At(100.0f, 70.0f), At(200.0f, 10.0f)};
  QuadraticCoefficients curve = kStale;
  EXPECT_TRUE(RejectRowOutliers(points, 0.01f, curve));
  EXPECT_EQ(points.size(), 3u);
}

TEST(RejectRowOutliers, TheOneInteriorStrayOfFiveGoes) {
  for (const int stray : {1, 2, 3}) {
    PointList points = Row(5, stray, 30.0f);
    QuadraticCoefficients curve;
    EXPECT_TRUE(RejectRowOutliers(points, 10.0f, curve));
    std::vector<int> expected = {0, 1, 2, 3, 4};
    expected.erase(expected.begin() + stray);
    EXPECT_EQ(Ids(points), expected);
    EXPECT_NEAR(curve.c, 50.0f, 0.001f);
    EXPECT_NEAR(curve.a, 0.0f, 1e-6f);
  }
}

TEST(RejectRowOutliers, AStrayAtTheEndOfFiveIsFollowedByTheCurve) {
  for (const int stray : {0, 4}) {
    PointList points = Row(5, stray, 30.0f);
    QuadraticCoefficients curve;
    float largest = 0.0f;
    int index = 0;
    EXPECT_TRUE(RowFitMaxResidual(points, curve, largest, index));
    EXPECT_NEAR(largest, 30.0f * 9.0f / 35.0f, 0.001f);
    EXPECT_TRUE(RejectRowOutliers(points, 10.0f, curve));
    EXPECT_EQ(points.size(), 5u);
  }
}

TEST(RejectRowOutliers, OfFourPointsTheOneWithTheLeastRoundingGoes) {
  const PointList original = {MakePoint(0, 0, 0, 3.3f, 50.1f), MakePoint(1, 0, 0, 101.7f, 111.3f),
                              MakePoint(2, 0, 0, 207.9f, 49.7f), MakePoint(3, 0, 0, 305.1f, 50.3f)};
  int expected = 0;
  float best = 100.0f;
  for (int i = 0; i < 4; ++i) {
    PointList others = original;
    others.erase(others.begin() + i);
    const float mean = RowFitMeanResidual(others);
    EXPECT_LT(mean, 0.01f);
    if (mean < best) {
      best = mean;
      expected = i;
    }
  }
  PointList points = original;
  QuadraticCoefficients curve;
  EXPECT_TRUE(RejectRowOutliers(points, 10.0f, curve));
  ASSERT_EQ(points.size(), 3u);
  for (const CalibrationPoint& point : points) {
    EXPECT_NE(point.id, expected);
  }
}

// On y = 0 every fit is exactly zero, so that the first point wins the search.
TEST(RejectRowOutliers, WithoutToleranceAPerfectRowLosesItsFirstPoint) {
  for (const float tolerance : {0.0f, -5.0f}) {
    PointList points;
    for (int i = 0; i < 5; ++i) {
      points.push_back(MakePoint(i, 0, 0, 100.0f * static_cast<float>(i), 0.0f));
    }
    QuadraticCoefficients curve;
    EXPECT_TRUE(RejectRowOutliers(points, tolerance, curve));
    EXPECT_EQ(Ids(points), (std::vector<int>{1, 2, 3, 4}));
  }
}

TEST(RejectRowOutliers, TheToleranceMustExceedTheLargestResidual) {
  QuadraticCoefficients curve;
  PointList points = {At(5.0f, 20.0f), At(5.0f, -7.0f)};
  EXPECT_TRUE(RejectRowOutliers(points, std::nextafter(20.0f, 21.0f), curve));
  EXPECT_EQ(points.size(), 2u);
  EXPECT_TRUE(RejectRowOutliers(points, 20.0f, curve));
  EXPECT_EQ(points.size(), 1u);
}

TEST(RejectRowOutliers, EqualMeansRemoveTheLowerIndexAndOnePointGivesZeros) {
  PointList points = {MakePoint(1, 0, 0, 5.0f, -7.0f), MakePoint(2, 0, 0, 5.0f, 20.0f)};
  QuadraticCoefficients curve = kStale;
  EXPECT_TRUE(RejectRowOutliers(points, 10.0f, curve));
  EXPECT_EQ(Ids(points), std::vector<int>{2});
  EXPECT_EQ(Bits(curve.a), Bits(0.0f));
  EXPECT_EQ(Bits(curve.b), Bits(0.0f));
  EXPECT_EQ(Bits(curve.c), Bits(0.0f));
}

// Three points of x = 5 have no finite curve; any two of them have the curve zero, so that the mean
// of a removal is the mean of the two y.
TEST(RejectRowOutliers, AMeanBelowTwoPixelsEndsTheRejection) {
  PointList points = {MakePoint(1, 0, 0, 5.0f, 1.75f), MakePoint(2, 0, 0, 5.0f, 2.0f),
                      MakePoint(3, 0, 0, 5.0f, 6.0f)};
  QuadraticCoefficients curve;
  EXPECT_TRUE(RejectRowOutliers(points, 0.0f, curve));
  EXPECT_EQ(Ids(points), (std::vector<int>{1, 2}));
}

TEST(RejectRowOutliers, AMeanOfTwoPixelsDoesNot) {
  PointList points = {MakePoint(1, 0, 0, 5.0f, 2.0f), MakePoint(2, 0, 0, 5.0f, 2.0f),
                      MakePoint(3, 0, 0, 5.0f, 6.0f)};
  QuadraticCoefficients curve;
  EXPECT_TRUE(RejectRowOutliers(points, 0.0f, curve));
  // The point with the largest residual goes first, the first one for want of a finite residual;
  // then one of the two that remain.
  EXPECT_EQ(Ids(points), std::vector<int>{3});
}

TEST(RejectRowOutliers, AFitThatIsNotANumberAccepts) {
  PointList points = {At(5.0f, 1.0f), At(5.0f, 500.0f), At(5.0f, 900.0f)};
  QuadraticCoefficients curve;
  EXPECT_TRUE(RejectRowOutliers(points, 10.0f, curve));
  EXPECT_EQ(points.size(), 3u);
  EXPECT_TRUE(std::isnan(curve.c));
}

TEST(RejectRowOutliers, SeveralStraysGoOneByOne) {
  PointList points = Row(9, 6, -200.0f);
  points[2].y += 100.0f;
  QuadraticCoefficients curve;
  EXPECT_TRUE(RejectRowOutliers(points, 10.0f, curve));
  EXPECT_EQ(Ids(points), (std::vector<int>{0, 1, 3, 4, 5, 7, 8}));
}

TEST(RejectColumnOutliers, CleansAColumnThatHasNoRowCurve) {
  PointList points = Transposed(Row(5, 2, 30.0f));
  const PointList original = points;
  QuadraticCoefficients curve;
  EXPECT_TRUE(RejectColumnOutliers(points, 10.0f, curve));
  EXPECT_EQ(Ids(points), (std::vector<int>{0, 1, 3, 4}));
  EXPECT_NEAR(curve.c, 50.0f, 0.001f);
  for (const CalibrationPoint& point : points) {
    const CalibrationPoint& before = original[static_cast<std::size_t>(point.id)];
    EXPECT_EQ(Bits(point.x), Bits(before.x));
    EXPECT_EQ(Bits(point.y), Bits(before.y));
  }
}

TEST(ColumnFitMaxResidual, IsTheRowFormOfTheExchangedPoints) {
  const PointList row = Row(7, 3, 12.5f);
  QuadraticCoefficients rowCurve, columnCurve;
  float rowLargest = 0.0f, columnLargest = 0.0f;
  int rowIndex = -1, columnIndex = -1;
  EXPECT_TRUE(RowFitMaxResidual(row, rowCurve, rowLargest, rowIndex));
  EXPECT_TRUE(ColumnFitMaxResidual(Transposed(row), columnCurve, columnLargest, columnIndex));
  EXPECT_EQ(Bits(rowCurve.a), Bits(columnCurve.a));
  EXPECT_EQ(Bits(rowLargest), Bits(columnLargest));
  EXPECT_EQ(rowIndex, columnIndex);
}

}  // namespace
}  // namespace quorvex::tests
