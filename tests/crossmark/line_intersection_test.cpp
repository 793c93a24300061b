#include "crossmark/line_intersection.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "tests/support/lines.h"

namespace quorvex::tests {
namespace {

constexpr float kUntouched = -7.0f;

struct Crossing {
  bool isFound;
  float x;
  float y;
};

Crossing CrossingOf(const LineSegment& first, const LineSegment& second) {
  Crossing crossing = {false, kUntouched, kUntouched};
  crossing.isFound = IntersectLines(first, second, crossing.x, crossing.y);
  return crossing;
}

TEST(IntersectLines, VerticalAndHorizontalCross) {
  const Crossing crossing = CrossingOf(MakeLine(1.0f, 0.0f, -3.0f), MakeLine(0.0f, -1.0f, 4.0f));
  EXPECT_TRUE(crossing.isFound);
  EXPECT_EQ(Bits(crossing.x), Bits(3.0f));
  EXPECT_EQ(Bits(crossing.y), Bits(4.0f));
}

TEST(IntersectLines, CrossingMayLieFarAway) {
  const Crossing crossing =
      CrossingOf(MakeLine(0.0f, -1.0f, 4.0f), MakeLine(0.0009765625f, -1.0f, -4.0f));
  EXPECT_TRUE(crossing.isFound);
  EXPECT_EQ(Bits(crossing.x), Bits(8192.0f));
  EXPECT_EQ(Bits(crossing.y), Bits(4.0f));
}

TEST(IntersectLines, ParallelLinesFailAndTouchNothing) {
  const Crossing crossing = CrossingOf(MakeLine(0.6f, 0.8f, -3.0f), MakeLine(0.6f, 0.8f, 4.0f));
  EXPECT_FALSE(crossing.isFound);
  EXPECT_EQ(crossing.x, kUntouched);
  EXPECT_EQ(crossing.y, kUntouched);
}

TEST(IntersectLines, LinesOfOppositeNormalsAreParallel) {
  EXPECT_FALSE(CrossingOf(MakeLine(0.6f, 0.8f, 0.0f), MakeLine(-0.6f, -0.8f, 4.0f)).isFound);
}

TEST(IntersectLines, SmallestDifferenceOfDirectionIsEnough) {
  const float smallest = std::numeric_limits<float>::denorm_min();
  EXPECT_TRUE(CrossingOf(MakeLine(0.0f, 1.0f, 0.0f), MakeLine(smallest, 1.0f, 1.0f)).isFound);
}

TEST(IntersectLines, EveryOperationIsRoundedToFloat) {
  std::mt19937 random(2);
  for (int n = 0; n < 300; ++n) {
    const auto next = [&](float reach) { return RandomFloat(random, -reach, reach); };
    const LineSegment l1 = MakeLine(next(1.0f), next(1.0f), next(300.0f));
    const LineSegment l2 = MakeLine(next(1.0f), next(1.0f), next(300.0f));
    const volatile float a1b2 = l1.a * l2.b;
    const volatile float a2b1 = l2.a * l1.b;
    const volatile float d = a1b2 - a2b1;
    const volatile float c2b1 = l2.c * l1.b;
    const volatile float b2c1 = l2.b * l1.c;
    const volatile float numeratorX = c2b1 - b2c1;
    const volatile float a2c1 = l2.a * l1.c;
    const volatile float c2a1 = l2.c * l1.a;
    const volatile float numeratorY = a2c1 - c2a1;
    const Crossing crossing = CrossingOf(l1, l2);
    EXPECT_EQ(Bits(crossing.x), Bits(numeratorX / d)) << "pair " << n;
    EXPECT_EQ(Bits(crossing.y), Bits(numeratorY / d)) << "pair " << n;
  }
}

}  // namespace
}  // namespace quorvex::tests
