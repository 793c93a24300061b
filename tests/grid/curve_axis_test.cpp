#include "grid/curve_axis.h"

#include <gtest/gtest.h>

#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

TEST(FitAxisCurve, AColumnIsFittedWithTheCoordinatesExchanged) {
  const PointList column = {At(2.0f, 1.0f), At(8.0f, 3.0f)};  // x = 3 y - 1
  QuadraticCoefficients curve;
  EXPECT_TRUE(FitAxisCurve(CurveAxis::kColumn, column, curve));
  EXPECT_EQ(Bits(curve.b), Bits(3.0f));
  EXPECT_EQ(Bits(curve.c), Bits(-1.0f));
  EXPECT_TRUE(FitAxisCurve(CurveAxis::kRow, column, curve));
  EXPECT_EQ(Bits(curve.b), Bits((3.0f - 1.0f) / (8.0f - 2.0f)));
}

TEST(FitAxisCurve, PassesTheFailureOfTheFitOn) {
  QuadraticCoefficients curve = {1.0f, 1.0f, 1.0f};
  EXPECT_FALSE(FitAxisCurve(CurveAxis::kColumn, {At(1.0f, 5.0f), At(2.0f, 5.0f)}, curve));
  EXPECT_EQ(Bits(curve.c), Bits(0.0f));
}

TEST(SignedResidual, IsPositiveBeyondTheCurve) {
  const QuadraticCoefficients curve = {0.0f, 1.0f, 10.0f};
  EXPECT_EQ(Bits(SignedResidual(CurveAxis::kRow, At(5.0f, 18.0f), curve)), Bits(3.0f));
  EXPECT_EQ(Bits(SignedResidual(CurveAxis::kRow, At(5.0f, 13.0f), curve)), Bits(-2.0f));
  EXPECT_EQ(Bits(SignedResidual(CurveAxis::kColumn, At(18.0f, 5.0f), curve)), Bits(3.0f));
  EXPECT_EQ(Bits(SignedResidual(CurveAxis::kColumn, At(13.0f, 5.0f), curve)), Bits(-2.0f));
}

}  // namespace
}  // namespace quorvex::tests
