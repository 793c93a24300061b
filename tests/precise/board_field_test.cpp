#include "precise/board_field.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quorvex::tests {
namespace {

using precise::BoardField;
using precise::Deviation;

constexpr double kVariance = 0.04;  // px^2

// Whether the middle's own mark is among them is told by `holdsMiddle`.
std::vector<Deviation> SmoothDeviations(bool holdsMiddle) {
  std::vector<Deviation> marks;
  for (int row = -3; row <= 3; ++row) {
    for (int column = -3; column <= 3; ++column) {
      if (holdsMiddle || row != 0 || column != 0) {
        marks.push_back({row, column, {0.2 * std::sin(0.5 * column), 0.1 * row}, 1e-4});
      }
    }
  }
  return marks;
}

TEST(BoardField, SaysNothingWithoutMarks) {
  const BoardField field({}, kVariance);
  EXPECT_EQ(field.At(0.3, -0.2).norm(), 0.0);
  EXPECT_EQ(field.AtMiddle().away.norm(), 0.0);
  EXPECT_EQ(field.AtMiddle().variance, kVariance);
  EXPECT_EQ(field.AtMiddleByOthers().variance, kVariance);
}

TEST(BoardField, SaysNothingIsOffWhereNothingVaries) {
  const BoardField field(SmoothDeviations(true), 0.0);
  EXPECT_EQ(field.At(0.3, -0.2).norm(), 0.0);
  EXPECT_EQ(field.AtMiddle().variance, 0.0);
}

TEST(BoardField, FollowsASmoothDeviation) {
  const BoardField field(SmoothDeviations(true), kVariance);
  EXPECT_NEAR(field.At(0.4, 0.0).x(), 0.2 * std::sin(0.2), 0.005);
  EXPECT_NEAR(field.At(0.0, -0.4).y(), -0.04, 0.005);
}

TEST(BoardField, MiddleIsThePlaceZero) {
  for (const bool holdsMiddle : {false, true}) {
    const BoardField field(SmoothDeviations(holdsMiddle), kVariance);
    EXPECT_LT((field.AtMiddle().away - field.At(0.0, 0.0)).norm(), 1e-9) << holdsMiddle;
  }
}

TEST(BoardField, OthersSayTheSameWithoutTheMiddlesOwnMark) {
  std::vector<Deviation> marks = SmoothDeviations(true);
  for (Deviation& mark : marks) {
    if (mark.row == 0 && mark.column == 0) {
      mark.away = {0.7, -0.3};
    }
  }
  const BoardField::Estimate expected = BoardField(SmoothDeviations(false), kVariance).AtMiddle();
  const BoardField::Estimate estimate = BoardField(marks, kVariance).AtMiddleByOthers();
  EXPECT_LT((estimate.away - expected.away).norm(), 1e-9);
  EXPECT_NEAR(estimate.variance, expected.variance, 1e-12);
  EXPECT_GT(estimate.variance, 0.0);
}

TEST(BoardField, OwnMarkMakesTheMiddleSurer) {
  const double with = BoardField(SmoothDeviations(true), kVariance).AtMiddle().variance;
  const double without = BoardField(SmoothDeviations(false), kVariance).AtMiddle().variance;
  EXPECT_LT(with, without);
  EXPECT_LT(with, 1e-4);
  EXPECT_GT(with, 0.0);
}

TEST(BoardField, LoneMarkSaysNothingOfItself) {
  const BoardField field({{0, 0, {0.5, 0.5}, 1e-4}}, kVariance);
  EXPECT_LT(field.AtMiddleByOthers().away.norm(), 1e-12);
  EXPECT_NEAR(field.AtMiddleByOthers().variance, kVariance, 1e-12);
  EXPECT_GT(field.AtMiddle().away.x(), 0.49);
}

}  // namespace
}  // namespace quorvex::tests
