#include "interface/stray_points.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

constexpr int kWidth = 100;
constexpr int kHeight = 80;

std::vector<int> Remaining(PointList points) {
  RemoveStrayPoints(kWidth, kHeight, points);
  return Ids(points);
}

bool Stays(float x, float y) { return Remaining({MakePoint(1, 0, 0, x, y)}).size() == 1; }

TEST(RemoveStrayPoints, ThePixelCentresOfTheBorderAreInside) {
  EXPECT_TRUE(Stays(0.0f, 0.0f));
  EXPECT_TRUE(Stays(99.0f, 79.0f));
}

TEST(RemoveStrayPoints, BeyondThemPointsAreOutside) {
  EXPECT_FALSE(Stays(99.5f, 40.0f));
  EXPECT_FALSE(Stays(std::nextafter(99.0f, 100.0f), 40.0f));
  EXPECT_FALSE(Stays(40.0f, std::nextafter(79.0f, 80.0f)));
  EXPECT_FALSE(Stays(std::nextafter(0.0f, -1.0f), 40.0f));
  EXPECT_FALSE(Stays(40.0f, std::nextafter(0.0f, -1.0f)));
}

TEST(RemoveStrayPoints, OfTwoNearPointsTheEarlierStays) {
  EXPECT_EQ(Remaining({MakePoint(1, 0, 0, 50.0f, 50.0f), MakePoint(2, 0, 0, 52.9f, 47.1f)}),
            std::vector<int>{1});
}

TEST(RemoveStrayPoints, ThreePixelsInEitherAxisAreFarEnough) {
  for (const float d : {3.0f, -3.0f}) {
    EXPECT_EQ(Remaining({MakePoint(1, 0, 0, 50.0f, 50.0f), MakePoint(2, 0, 0, 50.0f + d, 50.0f)}),
              (std::vector<int>{1, 2}));
    EXPECT_EQ(Remaining({MakePoint(1, 0, 0, 50.0f, 50.0f), MakePoint(2, 0, 0, 50.0f, 50.0f + d)}),
              (std::vector<int>{1, 2}));
  }
}

TEST(RemoveStrayPoints, AnEarlierPointThatGoesItselfStillRemovesALaterOne) {
  EXPECT_EQ(Remaining({MakePoint(1, 0, 0, 10.0f, 10.0f), MakePoint(2, 0, 0, 12.0f, 10.0f),
                       MakePoint(3, 0, 0, 14.0f, 10.0f)}),
            std::vector<int>{1});
  EXPECT_EQ(Remaining({MakePoint(1, 0, 0, -1.0f, 10.0f), MakePoint(2, 0, 0, 1.0f, 10.0f)}),
            std::vector<int>{});
}

TEST(RemoveStrayPoints, TheOthersKeepTheirOrder) {
  EXPECT_EQ(Remaining({MakePoint(5, 0, 0, 10.0f, 10.0f), MakePoint(4, 0, 0, 200.0f, 10.0f),
                       MakePoint(3, 0, 0, 30.0f, 10.0f), MakePoint(2, 0, 0, 11.0f, 10.0f),
                       MakePoint(1, 0, 0, 60.0f, 10.0f)}),
            (std::vector<int>{5, 3, 1}));
}

TEST(RemoveStrayPoints, APositionThatIsNotANumberIsNeitherOutsideNorNear) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(Remaining({MakePoint(1, 0, 0, nan, nan), MakePoint(2, 0, 0, nan, nan)}),
            (std::vector<int>{1, 2}));
}

TEST(RemoveStrayPoints, AnEmptyListStaysEmpty) { EXPECT_TRUE(Remaining({}).empty()); }

TEST(TurnUpsideDown, CountsYFromTheLastRow) {
  PointList points = {At(5.0f, 0.0f), At(6.0f, 79.0f), At(7.0f, 10.25f)};
  TurnUpsideDown(kHeight, points);
  EXPECT_EQ(Bits(points[0].y), Bits(79.0f));
  EXPECT_EQ(Bits(points[1].y), Bits(0.0f));
  EXPECT_EQ(Bits(points[2].y), Bits(68.75f));
  EXPECT_EQ(Bits(points[2].x), Bits(7.0f));
}

}  // namespace
}  // namespace quorvex::tests
