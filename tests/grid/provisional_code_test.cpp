#include "grid/provisional_code.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

constexpr int kOwn = -1;

const PointList kRow = {MakePoint(1, 0, 3, 100.0f, 0.0f), MakePoint(2, 0, 4, 200.0f, 0.0f),
                        MakePoint(3, 0, 7, 300.0f, 0.0f)};

int ColumnCode(const PointList& row, float x) {
  return ProvisionalColumnCode(row, MakePoint(9, 0, kOwn, x, 0.0f));
}

// By descending y.
const PointList kColumn = {MakePoint(1, 3, 0, 0.0f, 300.0f), MakePoint(2, 4, 0, 0.0f, 200.0f),
                           MakePoint(3, 7, 0, 0.0f, 100.0f)};

int RowCode(const PointList& column, float y) {
  return ProvisionalRowCode(column, MakePoint(9, kOwn, 0, 0.0f, y));
}

TEST(ProvisionalColumnCode, BeforeTheFirst) {
  EXPECT_EQ(ColumnCode(kRow, 79.0f), -100);
  EXPECT_EQ(ColumnCode(kRow, std::nextafter(80.0f, 0.0f)), -100);
  EXPECT_EQ(ColumnCode(kRow, 80.0f), kOwn);
}

TEST(ProvisionalColumnCode, BehindTheLast) {
  EXPECT_EQ(ColumnCode(kRow, 320.0f), kOwn);
  EXPECT_EQ(ColumnCode(kRow, std::nextafter(320.0f, 400.0f)), -101 - 7);
}

TEST(ProvisionalColumnCode, BetweenTwoBothBoundsLieTwentyPixelsToTheRight) {
  EXPECT_EQ(ColumnCode(kRow, 120.0f), kOwn);
  EXPECT_EQ(ColumnCode(kRow, std::nextafter(120.0f, 200.0f)), -101 - 3);
  EXPECT_EQ(ColumnCode(kRow, 195.0f), -101 - 3);
  EXPECT_EQ(ColumnCode(kRow, std::nextafter(220.0f, 0.0f)), -101 - 3);
  EXPECT_EQ(ColumnCode(kRow, 220.0f), kOwn);
  EXPECT_EQ(ColumnCode(kRow, std::nextafter(220.0f, 300.0f)), -101 - 4);
  EXPECT_EQ(ColumnCode(kRow, 319.0f), -101 - 4);
}

TEST(ProvisionalColumnCode, ALaterPairOverridesAnEarlierOne) {
  // Out of order, so that two pairs take x = 150.
  const PointList row = {MakePoint(1, 0, 1, 100.0f, 0.0f), MakePoint(2, 0, 2, 200.0f, 0.0f),
                         MakePoint(3, 0, 5, 110.0f, 0.0f), MakePoint(4, 0, 6, 200.0f, 0.0f)};
  EXPECT_EQ(ColumnCode(row, 150.0f), -101 - 5);
}

TEST(ProvisionalColumnCode, WithoutAPairThePointKeepsTheCodeItHas) {
  EXPECT_EQ(ProvisionalColumnCode(kRow, MakePoint(9, 0, -105, 110.0f, 0.0f)), -105);
}

TEST(ProvisionalRowCode, BelowTheFirst) {
  EXPECT_EQ(RowCode(kColumn, std::nextafter(320.0f, 400.0f)), -100);
  EXPECT_EQ(RowCode(kColumn, 320.0f), kOwn);
}

TEST(ProvisionalRowCode, AboveTheLast) {
  EXPECT_EQ(RowCode(kColumn, 80.0f), kOwn);
  EXPECT_EQ(RowCode(kColumn, std::nextafter(80.0f, 0.0f)), -101 - 7);
}

TEST(ProvisionalRowCode, BetweenTwoThePointLiesTwentyPixelsFromBoth) {
  EXPECT_EQ(RowCode(kColumn, 280.0f), kOwn);
  EXPECT_EQ(RowCode(kColumn, std::nextafter(280.0f, 0.0f)), -101 - 3);
  EXPECT_EQ(RowCode(kColumn, std::nextafter(220.0f, 300.0f)), -101 - 3);
  EXPECT_EQ(RowCode(kColumn, 220.0f), kOwn);
  EXPECT_EQ(RowCode(kColumn, 195.0f), kOwn);
  EXPECT_EQ(RowCode(kColumn, 150.0f), -101 - 4);
}

TEST(ProvisionalRowCode, ALaterPairOverridesAnEarlierOne) {
  const PointList column = {MakePoint(1, 1, 0, 0.0f, 200.0f), MakePoint(2, 2, 0, 0.0f, 100.0f),
                            MakePoint(3, 5, 0, 0.0f, 190.0f), MakePoint(4, 6, 0, 0.0f, 100.0f)};
  EXPECT_EQ(RowCode(column, 150.0f), -101 - 5);
}

TEST(ProvisionalRowCode, WithoutAPairThePointKeepsTheCodeItHas) {
  EXPECT_EQ(ProvisionalRowCode(kColumn, MakePoint(9, -105, 0, 0.0f, 290.0f)), -105);
}

TEST(LineNumberOfCode, DecodesBothKinds) {
  EXPECT_EQ(LineNumberOfCode(-100), 0);
  EXPECT_EQ(LineNumberOfCode(-101), 1);
  EXPECT_EQ(LineNumberOfCode(-108), 8);
  EXPECT_EQ(LineNumberOfCode(-199), 99);
  EXPECT_EQ(LineNumberOfCode(-200), 0);  // line 99 has no line 100 after it
}

TEST(LineNumberOfCode, OtherNumbersGiveTheRemainder) {
  EXPECT_EQ(LineNumberOfCode(-1), 1);
  EXPECT_EQ(LineNumberOfCode(5), -5);
  EXPECT_EQ(LineNumberOfCode(0), 0);
}

}  // namespace
}  // namespace quorvex::tests
