#include "grid/curve_crossing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tests/support/bytes.h"
#include "tests/support/list_drive.h"
#include "tests/support/points.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

class IntersectRowAndColumnCurvesTest : public ::testing::Test {
 protected:
  bool Intersect(const QuadraticCoefficients& row, const QuadraticCoefficients& column, int width,
                 int height) {
    x = y = -7.0f;
    return IntersectRowAndColumnCurves(row, column, width, height, x, y);
  }

  void ExpectUntouched() const {
    EXPECT_EQ(Bits(x), Bits(-7.0f));
    EXPECT_EQ(Bits(y), Bits(-7.0f));
  }

  TemporaryDirectory directory;
  float x = 0.0f;
  float y = 0.0f;
};

constexpr QuadraticCoefficients Constant(float c) { return {0.0f, 0.0f, c}; }

TEST_F(IntersectRowAndColumnCurvesTest, FindsWholePixelsExactly) {
  // 39 + 50 * 0.02 is 40 in single precision, and 40 has no distance.
  EXPECT_TRUE(Intersect(Constant(30.0f), Constant(40.0f), 100, 100));
  EXPECT_EQ(Bits(x), Bits(40.0f));
  EXPECT_EQ(Bits(y), Bits(30.0f));
}

TEST_F(IntersectRowAndColumnCurvesTest, RefinesToFiftiethsOfAPixel) {
  EXPECT_TRUE(Intersect(Constant(30.0f), Constant(40.33f), 100, 100));
  EXPECT_EQ(Bits(x), Bits(static_cast<float>(39.0 + 67 * 0.02)));
  // 40.5 is as near to 40 as to 41: the smaller wins and the search goes on from 39.
  EXPECT_TRUE(Intersect(Constant(30.0f), Constant(40.5f), 100, 100));
  EXPECT_EQ(Bits(x), Bits(static_cast<float>(39.0 + 75 * 0.02)));
}

TEST_F(IntersectRowAndColumnCurvesTest, FiftiethsAreCountedInDoublePrecision) {
  // From pixel 0 on, where single precision has digits enough to show it.
  for (int k = 26; k < 75; ++k) {
    const float position = static_cast<float>(k * 0.02);
    EXPECT_TRUE(Intersect(Constant(30.0f), Constant(position), 100, 100));
    EXPECT_EQ(Bits(x), Bits(position)) << k;
  }
}

TEST_F(IntersectRowAndColumnCurvesTest, TheRefinementEndsBeforeAWholePixelBeyond) {
  // The last whole pixel is 99; from there the search ends at 98 + 99 * 0.02.
  EXPECT_TRUE(Intersect(Constant(30.0f), Constant(105.0f), 100, 100));
  EXPECT_EQ(Bits(x), Bits(static_cast<float>(98.0 + 99 * 0.02)));
}

TEST_F(IntersectRowAndColumnCurvesTest, CrossesStraightLines) {
  // y = 0.5 x + 10 and x = 0.25 y + 30: x = 32.5 / 0.875
  EXPECT_TRUE(Intersect({0.0f, 0.5f, 10.0f}, {0.0f, 0.25f, 30.0f}, 200, 200));
  EXPECT_NEAR(x, 32.5 / 0.875, 0.02);
  EXPECT_EQ(Bits(y), Bits(0.5f * x + 10.0f));
}

TEST_F(IntersectRowAndColumnCurvesTest, CurvesTenPixelsApartStillCross) {
  EXPECT_TRUE(Intersect(Constant(30.0f), Constant(109.0f), 100, 100));
  const float beyond = std::nextafter(109.0f, 200.0f);
  EXPECT_FALSE(Intersect(Constant(30.0f), Constant(beyond), 100, 100));
  ExpectUntouched();
}

TEST_F(IntersectRowAndColumnCurvesTest, ACrossingOutsideTheImageIsDropped) {
  EXPECT_FALSE(Intersect(Constant(30.0f), Constant(-0.5f), 100, 100));
  ExpectUntouched();
  EXPECT_FALSE(Intersect(Constant(-0.5f), Constant(40.0f), 100, 100));
  EXPECT_FALSE(Intersect(Constant(100.0f), Constant(40.0f), 100, 100));
  EXPECT_TRUE(Intersect(Constant(99.9f), Constant(40.0f), 100, 100));
  EXPECT_TRUE(Intersect(Constant(0.0f), Constant(40.0f), 100, 100));
}

// y = x and x = y meet everywhere. The first whole pixel wins, 0, and from there the first position
// of the fine search, -1, which lies outside.
TEST_F(IntersectRowAndColumnCurvesTest, OfEquallyNearPositionsTheFirstWinsInBothSearches) {
  EXPECT_FALSE(Intersect({0.0f, 1.0f, 0.0f}, {0.0f, 1.0f, 0.0f}, 100, 100));
  ExpectUntouched();
}

// The curves meet near 50 and, nearer, at 48.98, but of the whole pixels 50 is the nearest.
TEST_F(IntersectRowAndColumnCurvesTest, TheRefinementBeginsAWholePixelBefore) {
  EXPECT_TRUE(Intersect({1.0f, -100.0f, 2500.0f}, {0.0f, -0.97655f, 49.996f}, 100, 100));
  EXPECT_EQ(Bits(x), Bits(50.0f));
  EXPECT_TRUE(Intersect({1.0f, -100.0f, 2500.0f}, {0.0f, -0.996f, 49.996f}, 100, 100));
  EXPECT_EQ(Bits(x), Bits(49.0f));
}

// No distance is below the width 5: the start value, below 10, and t = 0 and y = 0 stand.
TEST_F(IntersectRowAndColumnCurvesTest, InANarrowImageTheStartStands) {
  EXPECT_TRUE(Intersect(Constant(3.0f), Constant(500.0f), 5, 100));
  EXPECT_EQ(Bits(x), Bits(0.0f));
  EXPECT_EQ(Bits(y), Bits(0.0f));
  EXPECT_FALSE(Intersect(Constant(3.0f), Constant(500.0f), 11, 100));
}

TEST_F(IntersectRowAndColumnCurvesTest, CurvesThatAreNotNumbersDoNotCross) {
  EXPECT_FALSE(Intersect(Constant(std::nanf("")), Constant(40.0f), 100, 100));
}

TEST_F(IntersectRowAndColumnCurvesTest, WritesTheQuarticOfTheLatestCallAlsoWhenItFails) {
  const ListDrive drive;
  Intersect(Constant(1.0f), Constant(1.0f), 10, 10);
  // column(row(t)) - t for row 2 t^2 + 3 t + 5 and column 7 u^2 + 11 u + 13
  EXPECT_FALSE(Intersect({2.0f, 3.0f, 5.0f}, {7.0f, 11.0f, 13.0f}, 100, 100));
  // 7*4, 2*7*2*3, 7*9 + 2*7*2*5 + 11*2, 2*7*3*5 + 11*3 - 1, 7*25 + 11*5 + 13
  EXPECT_EQ(ReadText("D:/sdf.txt"), "28.000000\t84.000000\t225.000000\t242.000000\t243.000000\n");
}

TEST_F(IntersectRowAndColumnCurvesTest, AFileThatCannotBeOpenedIsSkipped) {
  const ListDrive drive;
  drive.BlockLists();
  EXPECT_TRUE(Intersect(Constant(30.0f), Constant(40.0f), 100, 100));
}

}  // namespace
}  // namespace quorvex::tests
