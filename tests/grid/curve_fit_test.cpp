#include "grid/curve_fit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <utility>
#include <vector>

#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

const QuadraticCoefficients kStale = {7.0f, 8.0f, 9.0f};

void ExpectCurve(const QuadraticCoefficients& curve, float a, float b, float c) {
  EXPECT_EQ(Bits(curve.a), Bits(a));
  EXPECT_EQ(Bits(curve.b), Bits(b));
  EXPECT_EQ(Bits(curve.c), Bits(c));
}

// The normal equations over again, in the plainest form.
QuadraticCoefficients PlainFit(const PointList& points, bool withExchanges = true) {
  std::vector<std::vector<double>> m(3, std::vector<double>(4));
  for (const CalibrationPoint& point : points) {
    const float x = point.x, y = point.y;
    const float powers[5] = {1.0f, x, x * x, (x * x) * x, ((x * x) * x) * x};
    const float targets[3] = {(x * x) * y, x * y, y};
    for (int i = 0; i < 3; ++i) {
      for (int j = 0; j < 3; ++j) {
        m[i][j] += static_cast<double>(powers[4 - i - j]);
      }
      m[i][3] += static_cast<double>(targets[i]);
    }
  }
  for (int k = 0; k < 3; ++k) {
    const double diagonal = std::fabs(m[k][k]);
    for (int i = k + 1; i < 3 && withExchanges; ++i) {
      if (std::fabs(m[i][k]) > diagonal) {
        std::swap(m[k], m[i]);
      }
    }
    for (int i = k + 1; i < 3; ++i) {
      const double factor = m[i][k] / m[k][k];
      for (int j = k + 1; j < 4; ++j) {
        m[i][j] = m[i][j] - factor * m[k][j];
      }
    }
  }
  const double c = m[2][3] / m[2][2];
  const double b = (m[1][3] - m[1][2] * c) / m[1][1];
  const double a = (m[0][3] - m[0][2] * c - m[0][1] * b) / m[0][0];
  return {static_cast<float>(a), static_cast<float>(b), static_cast<float>(c)};
}

bool IsSame(const QuadraticCoefficients& left, const QuadraticCoefficients& right) {
  return Bits(left.a) == Bits(right.a) && Bits(left.b) == Bits(right.b) &&
         Bits(left.c) == Bits(right.c);
}

TEST(FitQuadraticCurve, FewerThanTwoPointsGiveZerosAndFalse) {
  QuadraticCoefficients curve = kStale;
  EXPECT_FALSE(FitQuadraticCurve({}, curve));
  ExpectCurve(curve, 0.0f, 0.0f, 0.0f);
  curve = kStale;
  EXPECT_FALSE(FitQuadraticCurve({At(3.0f, 4.0f)}, curve));
  ExpectCurve(curve, 0.0f, 0.0f, 0.0f);
}

TEST(FitQuadraticCurve, TwoPointsGiveTheLineThroughThem) {
  QuadraticCoefficients curve = kStale;
  EXPECT_TRUE(FitQuadraticCurve({At(1.0f, 2.0f), At(3.0f, 8.0f)}, curve));
  ExpectCurve(curve, 0.0f, 3.0f, -1.0f);
}

TEST(FitQuadraticCurve, TheLineStartsFromTheFirstPointOfTheList) {
  const CalibrationPoint p = At(0.1f, 0.2f);
  const CalibrationPoint q = At(1000.3f, 7.7f);
  const float slope = (7.7f - 0.2f) / (1000.3f - 0.1f);
  const float fromP = 0.2f - slope * 0.1f;
  const float fromQ = 7.7f - slope * 1000.3f;
  ASSERT_NE(Bits(fromP), Bits(fromQ));
  QuadraticCoefficients curve;
  EXPECT_TRUE(FitQuadraticCurve({p, q}, curve));
  ExpectCurve(curve, 0.0f, slope, fromP);
  EXPECT_TRUE(FitQuadraticCurve({q, p}, curve));
  ExpectCurve(curve, 0.0f, slope, fromQ);
}

TEST(FitQuadraticCurve, TwoPointsOfTheSameXGiveZerosAndFalse) {
  QuadraticCoefficients curve = kStale;
  EXPECT_FALSE(FitQuadraticCurve({At(5.0f, 1.0f), At(5.0f, 9.0f)}, curve));
  ExpectCurve(curve, 0.0f, 0.0f, 0.0f);
  curve = kStale;
  const float justBelow = std::nextafter(0.001f, 0.0f);
  EXPECT_FALSE(FitQuadraticCurve({At(0.0f, 1.0f), At(justBelow, 9.0f)}, curve));
  ExpectCurve(curve, 0.0f, 0.0f, 0.0f);
}

TEST(FitQuadraticCurve, TwoPointsOneThousandthApartGiveALine) {
  QuadraticCoefficients curve = kStale;
  EXPECT_TRUE(FitQuadraticCurve({At(0.0f, 1.0f), At(0.001f, 9.0f)}, curve));
  ExpectCurve(curve, 0.0f, 8.0f / 0.001f, 1.0f);
  EXPECT_TRUE(FitQuadraticCurve({At(0.001f, 9.0f), At(0.0f, 1.0f)}, curve));
}

TEST(FitQuadraticCurve, ThreeCollinearPointsGiveTheirLine) {
  QuadraticCoefficients curve = kStale;
  EXPECT_TRUE(FitQuadraticCurve({At(0.0f, 1.0f), At(1.0f, 3.0f), At(2.0f, 5.0f)}, curve));
  EXPECT_LT(std::fabs(curve.a), 1e-12f);  // of the order of double rounding
  EXPECT_EQ(Bits(curve.b), Bits(2.0f));
  EXPECT_EQ(Bits(curve.c), Bits(1.0f));
}

TEST(FitQuadraticCurve, FindsAParabola) {
  QuadraticCoefficients curve;
  // 2 x^2 - 3 x + 5
  EXPECT_TRUE(FitQuadraticCurve(
      {At(-2.0f, 19.0f), At(-1.0f, 10.0f), At(0.0f, 5.0f), At(1.0f, 4.0f), At(3.0f, 14.0f)},
      curve));
  ExpectCurve(curve, 2.0f, -3.0f, 5.0f);
}

TEST(FitQuadraticCurve, ThreePointsOfEqualXAreTrueWhateverTheSystemGives) {
  QuadraticCoefficients curve;
  EXPECT_TRUE(FitQuadraticCurve({At(5.0f, 1.0f), At(5.0f, 2.0f), At(5.0f, 3.0f)}, curve));
  EXPECT_FALSE(std::isfinite(curve.a));
  EXPECT_FALSE(std::isfinite(curve.b));
  EXPECT_FALSE(std::isfinite(curve.c));
  EXPECT_TRUE(FitQuadraticCurve({At(0.1f, 1.0f), At(0.1f, 2.0f), At(0.1f, 3.0f)}, curve));
  EXPECT_TRUE(std::isfinite(curve.c));
}

TEST(FitQuadraticCurve, MatchesThePlainFormToTheBit) {
  std::mt19937 random(20);
  std::uniform_real_distribution<float> coordinate(0.0f, 3000.0f);
  for (int trial = 0; trial < 500; ++trial) {
    PointList points;
    for (int i = 0; i < 3 + trial % 12; ++i) {
      const float x = coordinate(random);
      points.push_back(At(x, coordinate(random)));
    }
    QuadraticCoefficients curve;
    ASSERT_TRUE(FitQuadraticCurve(points, curve));
    ASSERT_TRUE(IsSame(curve, PlainFit(points))) << "trial " << trial;
  }
}

// Coordinates below 1 make both later rows exceed the diagonal; nearly equal ones let an exchange
// show in single precision.
TEST(FitQuadraticCurve, LaterRowsAboveTheDiagonalAreExchangedWithIt) {
  std::mt19937 random(21);
  std::uniform_real_distribution<float> coordinate(0.4f, 0.402f);
  int differing = 0;
  for (int trial = 0; trial < 200; ++trial) {
    PointList points;
    for (int i = 0; i < 5; ++i) {
      const float x = coordinate(random);
      points.push_back(At(x, coordinate(random)));
    }
    QuadraticCoefficients curve;
    ASSERT_TRUE(FitQuadraticCurve(points, curve));
    ASSERT_TRUE(IsSame(curve, PlainFit(points))) << "trial " << trial;
    differing += IsSame(curve, PlainFit(points, false)) ? 0 : 1;
  }
  EXPECT_GT(differing, 0);  // else the trials would say nothing about exchanges
}

// (2^12 + 1)^2 is 2^24 + 2^13 + 1, one bit more than a float holds.
TEST(FitQuadraticCurve, PowersAreFormedInSinglePrecision) {
  const PointList points = {At(4097.0f, 1.0f), At(4099.0f, 2.0f), At(4103.0f, 5.0f)};
  QuadraticCoefficients curve;
  EXPECT_TRUE(FitQuadraticCurve(points, curve));
  EXPECT_TRUE(IsSame(curve, PlainFit(points)));
}

TEST(EvaluateCurve, SquaresTheArgumentFirst) {
  const QuadraticCoefficients curve = {0.1f, 0.7f, 3.3f};
  int differing = 0;
  for (int i = 0; i < 100; ++i) {
    const float t = 0.37f * static_cast<float>(i);
    const float squareFirst = curve.a * (t * t) + curve.b * t + curve.c;
    const float productFirst = (curve.a * t) * t + curve.b * t + curve.c;
    ASSERT_EQ(Bits(EvaluateCurve(curve, t)), Bits(squareFirst));
    differing += Bits(squareFirst) == Bits(productFirst) ? 0 : 1;
  }
  EXPECT_GT(differing, 0);
}

}  // namespace
}  // namespace quorvex::tests
