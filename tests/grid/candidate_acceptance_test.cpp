#include "grid/candidate_acceptance.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

// A row of one point and a candidate of the same x have no line: the curve is zero and the
// residuals are the y themselves.
TEST(AcceptsRowCandidate, TenPixelsOffTheCurveIsTooFar) {
  const PointList row = {At(5.0f, 0.0f)};
  EXPECT_FALSE(AcceptsRowCandidate(row, At(5.0f, 10.0f)));
  EXPECT_TRUE(AcceptsRowCandidate(row, At(5.0f, std::nextafter(10.0f, 0.0f))));
  EXPECT_FALSE(AcceptsRowCandidate(row, At(5.0f, -10.0f)));
}

TEST(AcceptsRowCandidate, APointOfTheRowCanBeTooFarAsWell) {
  EXPECT_FALSE(AcceptsRowCandidate({At(5.0f, 10.5f)}, At(5.0f, 0.0f)));
}

// The middle of five keeps 18/35 of its offset as residual.
TEST(AcceptsRowCandidate, TheCandidateBendsTheCurve) {
  const PointList row = {At(0.0f, 0.0f), At(100.0f, 0.0f), At(300.0f, 0.0f), At(400.0f, 0.0f)};
  EXPECT_TRUE(AcceptsRowCandidate(row, At(200.0f, 19.0f)));
  EXPECT_FALSE(AcceptsRowCandidate(row, At(200.0f, 20.0f)));
}

TEST(AcceptsColumnCandidate, ExchangesTheCoordinates) {
  const PointList column = {At(0.0f, 0.0f), At(0.0f, 100.0f), At(0.0f, 300.0f), At(0.0f, 400.0f)};
  EXPECT_TRUE(AcceptsColumnCandidate(column, At(19.0f, 200.0f)));
  EXPECT_FALSE(AcceptsColumnCandidate(column, At(20.0f, 200.0f)));
}

TEST(AcceptsRowCandidate, AFitThatIsNotANumberAccepts) {
  EXPECT_TRUE(AcceptsRowCandidate({At(5.0f, 0.0f), At(5.0f, 900.0f)}, At(5.0f, 5000.0f)));
}

}  // namespace
}  // namespace quorvex::tests
