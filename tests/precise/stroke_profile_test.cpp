#include "precise/stroke_profile.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quorvex::tests {
namespace {

using precise::EdgeTables;
using precise::StrokeProfile;

// The pixel's cover by summing over its points and over the blur.
double CoveredPart(double across, double width, double sigma, const Eigen::Vector2d& normal) {
  constexpr int kPoints = 60;
  double covered = 0.0;
  for (int i = 0; i < kPoints; ++i) {
    for (int j = 0; j < kPoints; ++j) {
      const double x = (i + 0.5) / kPoints - 0.5;
      const double y = (j + 0.5) / kPoints - 0.5;
      const double t = across + normal.x() * x + normal.y() * y;
      const double root = sigma * std::sqrt(2.0);
      covered += 0.5 * (std::erf((t + 0.5 * width) / root) - std::erf((t - 0.5 * width) / root));
    }
  }
  return covered / (kPoints * kPoints);
}

TEST(StrokeProfile, IsTheCoverOfABlurredPixel) {
  const EdgeTables edges(0.6);
  for (const double degrees : {0.0, 22.5, 45.0, 135.0}) {
    const double angle = degrees / 180.0 * 3.14159265358979;
    const Eigen::Vector2d normal(std::cos(angle), std::sin(angle));
    const StrokeProfile profile(edges, normal, 2.3);
    for (const double across : {-2.5, -1.1, 0.0, 0.4, 1.7}) {
      EXPECT_NEAR(profile.At(across).dark, CoveredPart(across, 2.3, 0.6, normal), 3e-4)
          << degrees << " degrees, " << across << " px";
    }
  }
}

TEST(StrokeProfile, SlopeIsTheDerivative) {
  const EdgeTables edges(1.2);
  const StrokeProfile profile(edges, Eigen::Vector2d::UnitY(), 3.0);
  for (const double across : {-3.0, -1.5, -0.2, 0.9, 2.1}) {
    const double difference = profile.At(across + 0.05).dark - profile.At(across - 0.05).dark;
    EXPECT_NEAR(profile.At(across).slope, difference / 0.1, 1e-3) << across;
  }
}

TEST(StrokeProfile, ThinStrokesNeverReachFullDarkness) {
  const EdgeTables edges(1.0);
  EXPECT_LT(StrokeProfile(edges, Eigen::Vector2d::UnitX(), 1.0).Peak(), 0.45);
  EXPECT_GT(StrokeProfile(edges, Eigen::Vector2d::UnitX(), 9.0).Peak(), 0.999);
}

TEST(StrokeProfile, IsNothingBeyondItsReach) {
  const EdgeTables edges(0.5);
  const StrokeProfile profile(edges, Eigen::Vector2d::UnitX(), 2.0);
  EXPECT_EQ(profile.At(profile.Reach() + 1.0).dark, 0.0);
  EXPECT_EQ(profile.At(-1e9).slope, 0.0);
  EXPECT_EQ(profile.At(std::nan("")).dark, 0.0);
}

}  // namespace
}  // namespace quorvex::tests
