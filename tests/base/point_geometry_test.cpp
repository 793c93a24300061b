#include "base/point_geometry.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

TEST(PointDistance, IsRoundedToSinglePrecisionAtEveryStep) {
  EXPECT_EQ(Bits(PointDistance(At(1.0f, 2.0f), At(4.0f, 6.0f))), Bits(5.0f));
  EXPECT_EQ(Bits(PointDistance(At(4.0f, 6.0f), At(1.0f, 2.0f))), Bits(5.0f));
  // The difference 2^24 + 1 becomes 2^24.
  EXPECT_EQ(Bits(PointDistance(At(-1.0f, 0.0f), At(16777216.0f, 0.0f))), Bits(16777216.0f));
  // The sum 25 + 10^-8 of the squares becomes 25.
  EXPECT_EQ(Bits(PointDistance(At(0.0f, 0.0f), At(5.0f, 1e-4f))), Bits(5.0f));
  // 1.41421353816986083984375 is the float nearest to the root of 2.
  EXPECT_EQ(Bits(PointDistance(At(0.0f, 0.0f), At(1.0f, 1.0f))), 0x3FB504F3u);
}

TEST(CentreOfGravity, IsSummedInSinglePrecisionInListOrder) {
  const CalibrationPoint centre = CentreOfGravity({At(1.0f, 2.0f), At(2.0f, 4.0f), At(6.0f, 9.0f)});
  EXPECT_EQ(Bits(centre.x), Bits(3.0f));
  EXPECT_EQ(Bits(centre.y), Bits(5.0f));
  // 16777216 + 1 is 16777216 in single precision, but 1 + 1 + 16777216 is 16777218.
  EXPECT_EQ(Bits(CentreOfGravity({At(16777216.0f, 0.0f), At(1.0f, 0.0f), At(1.0f, 0.0f)}).x),
            Bits(16777216.0f / 3.0f));
  EXPECT_EQ(Bits(CentreOfGravity({At(1.0f, 0.0f), At(1.0f, 0.0f), At(16777216.0f, 0.0f)}).x),
            Bits(16777218.0f / 3.0f));
}

TEST(CentreOfGravity, OfNothingIsNotANumber) {
  const CalibrationPoint centre = CentreOfGravity({});
  EXPECT_TRUE(std::isnan(centre.x));
  EXPECT_TRUE(std::isnan(centre.y));
}

TEST(IsInSquare, TheBorderDoesNotCount) {
  EXPECT_TRUE(IsInSquare(At(100.0f, 100.0f), 100.0f, 100.0f, 9.0f));
  EXPECT_TRUE(IsInSquare(At(108.5f, 91.5f), 100.0f, 100.0f, 9.0f));
  EXPECT_FALSE(IsInSquare(At(109.0f, 100.0f), 100.0f, 100.0f, 9.0f));
  EXPECT_FALSE(IsInSquare(At(91.0f, 100.0f), 100.0f, 100.0f, 9.0f));
  EXPECT_FALSE(IsInSquare(At(100.0f, 109.0f), 100.0f, 100.0f, 9.0f));
  EXPECT_FALSE(IsInSquare(At(100.0f, 91.0f), 100.0f, 100.0f, 9.0f));
}

TEST(IsInSquare, NotANumberIsNowhere) {
  const float nan = std::nanf("");
  EXPECT_FALSE(IsInSquare(At(nan, 0.0f), 0.0f, 0.0f, 9.0f));
  EXPECT_FALSE(IsInSquare(At(0.0f, 0.0f), 0.0f, nan, 9.0f));
}

}  // namespace
}  // namespace quorvex::tests
