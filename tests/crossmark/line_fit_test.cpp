#include "crossmark/line_fit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "tests/support/lines.h"

namespace quorvex::tests {
namespace {

// a, b, c and the angle.
using Fit = std::vector<float>;

Fit FitOf(const PointFList& points) {
  float a = 0.0f;
  float b = 0.0f;
  float c = 0.0f;
  float angle = 0.0f;
  EXPECT_TRUE(FitLine(points, a, b, c, angle));
  return {a, b, c, angle};
}

// Every operation by itself, in the precision that is due to it.
Fit FitPlainly(const PointFList& points) {
  volatile float meanX = 0.0f;
  volatile float meanY = 0.0f;
  const float count = static_cast<float>(points.size());
  for (const PointF& point : points) {
    meanX = meanX + point.x;
    meanY = meanY + point.y;
  }
  meanX = meanX / count;
  meanY = meanY / count;
  volatile float sxx = 0.0f;
  volatile float sxy = 0.0f;
  for (const PointF& point : points) {
    const volatile float dx = point.x - meanX;
    const volatile float dy = point.y - meanY;
    const volatile float square = dx * dx;
    const volatile float product = dy * dx;
    sxx = sxx + square;
    sxy = sxy + product;
  }
  const volatile float spread = sxx / count;
  if (static_cast<double>(spread) < 1.2) {
    return {1.0f, 0.0f, -meanX, 1.5707963f};
  }
  const volatile float slope = sxy / sxx;
  const volatile float lift = slope * meanX;
  const volatile float c = meanY - lift;
  const volatile float square = slope * slope;
  const volatile float squares = square + 1.0f;
  const volatile float norm = static_cast<float>(std::sqrt(static_cast<double>(squares)));
  return {slope / norm, -1.0f / norm, c / norm,
          static_cast<float>(std::atan(static_cast<double>(slope)))};
}

void ExpectUntouched(const PointFList& points) {
  float a = 1.0f;
  float b = 2.0f;
  float c = 3.0f;
  float angle = 4.0f;
  EXPECT_FALSE(FitLine(points, a, b, c, angle));
  EXPECT_EQ((Fit{a, b, c, angle}), (Fit{1.0f, 2.0f, 3.0f, 4.0f}));
}

TEST(FitLine, FewerThanTwoPointsFailAndTouchNothing) {
  ExpectUntouched({});
  ExpectUntouched({{5.0f, 6.0f}});
}

TEST(FitLine, TwoPointsGiveTheirLine) {
  const float norm = static_cast<float>(std::sqrt(2.0));
  EXPECT_EQ(
      BitsOf(FitOf({{0.0f, 3.0f}, {10.0f, 13.0f}})),
      BitsOf(Fit{1.0f / norm, -1.0f / norm, 3.0f / norm, static_cast<float>(std::atan(1.0))}));
}

TEST(FitLine, FallingLineHasANegativeAngle) {
  const float norm = static_cast<float>(std::sqrt(5.0));
  EXPECT_EQ(
      BitsOf(FitOf({{0.0f, 20.0f}, {10.0f, 0.0f}})),
      BitsOf(Fit{-2.0f / norm, -1.0f / norm, 20.0f / norm, static_cast<float>(std::atan(-2.0))}));
}

TEST(FitLine, HorizontalPointsGiveAnAngleOfZero) {
  EXPECT_EQ(BitsOf(FitOf(RowPoints(80.0f, 20, 60))), BitsOf(Fit{0.0f, -1.0f, 80.0f, 0.0f}));
}

TEST(FitLine, VerticalPointsGiveAQuarterTurn) {
  EXPECT_EQ(BitsOf(FitOf(ColumnPoints(77.0f, 20, 60))),
            BitsOf(Fit{1.0f, 0.0f, -77.0f, 1.5707963f}));
}

TEST(FitLine, SpreadBelowTheBoundIsVertical) {
  // Mean x 10, mean squared deviation 1.
  EXPECT_EQ(BitsOf(FitOf({{9.0f, 0.0f}, {11.0f, 50.0f}})),
            BitsOf(Fit{1.0f, 0.0f, -10.0f, 1.5707963f}));
}

TEST(FitLine, SpreadAtTheBoundIsNotVertical) {
  // Deviations -2, 1, 1, 0 and 0: 6 / 5, and as a float that is not below 1.2.
  EXPECT_EQ(
      BitsOf(FitOf({{8.0f, 4.0f}, {11.0f, 4.0f}, {11.0f, 4.0f}, {10.0f, 4.0f}, {10.0f, 4.0f}})),
      BitsOf(Fit{0.0f, -1.0f, 4.0f, 0.0f}));
}

TEST(FitLine, SpreadIsTakenOverTheNumberOfPoints) {
  // Three points, squares 3.45 in sum: 1.15 over three, 1.72 over two.
  const float d = 1.3125f;
  EXPECT_EQ(FitOf({{10.0f - d, 0.0f}, {10.0f, 9.0f}, {10.0f + d, 30.0f}})[1], 0.0f);
}

TEST(FitLine, ResidualsAreTakenAlongY) {
  // Slope by least squares of y on x: Sxx 8, Sxy 12.
  const float norm = static_cast<float>(std::sqrt(3.25));
  const Fit fit = FitOf({{0.0f, 0.0f}, {2.0f, 0.0f}, {4.0f, 6.0f}});
  EXPECT_EQ(BitsOf(fit), BitsOf(Fit{1.5f / norm, -1.0f / norm, -1.0f / norm,
                                    static_cast<float>(std::atan(1.5))}));
}

TEST(FitLine, EveryOperationIsRoundedToFloat) {
  std::mt19937 random(1);
  for (int n = 0; n < 300; ++n) {
    PointFList points;
    const float reach = n % 3 == 0 ? 2.0f : 3000.0f;  // about the bound of the spread, and far
    for (int i = 0; i < 2 + n % 60; ++i) {
      points.push_back({RandomFloat(random, -reach, reach), RandomFloat(random, -50.0f, 3000.0f)});
    }
    EXPECT_EQ(BitsOf(FitOf(points)), BitsOf(FitPlainly(points))) << "list " << n;
  }
}

}  // namespace
}  // namespace quorvex::tests
