#include "postprocess/neighbour_search.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include "tests/support/points.h"
#include "tests/support/reserved_bytes.h"

namespace quorvex::tests {
namespace {

constexpr Sector kSectors[] = {kTowardsLargerX, kTowardsSmallerX, kTowardsLargerY,
                               kTowardsSmallerY};
constexpr int kNone = 0;
const float kNan = std::numeric_limits<float>::quiet_NaN();

// The id of the neighbour of (0, 0), or kNone.
int NeighbourId(const PointList& points, Sector sector) {
  CalibrationPoint found = MakePoint(-99, 0, 0, 0.0f, 0.0f);
  if (!FindNeighbourInSector(points, At(0.0f, 0.0f), found, sector)) {
    EXPECT_EQ(found.id, -99);
    return kNone;
  }
  return found.id;
}

// The sectors in which a lone point at (x, y) is the neighbour of (0, 0).
std::vector<int> SectorsOf(float x, float y) {
  std::vector<int> sectors;
  for (const Sector sector : kSectors) {
    if (NeighbourId({MakePoint(1, 0, 0, x, y)}, sector) != kNone) {
      sectors.push_back(sector);
    }
  }
  return sectors;
}

TEST(FindNeighbourInSector, EachSectorLooksAlongItsAxis) {
  EXPECT_EQ(SectorsOf(100.0f, 0.0f), std::vector<int>{kTowardsLargerX});
  EXPECT_EQ(SectorsOf(-100.0f, 0.0f), std::vector<int>{kTowardsSmallerX});
  EXPECT_EQ(SectorsOf(0.0f, 100.0f), std::vector<int>{kTowardsLargerY});
  EXPECT_EQ(SectorsOf(0.0f, -100.0f), std::vector<int>{kTowardsSmallerY});
}

TEST(FindNeighbourInSector, SectorsAreNumberedFromOneToFour) {
  EXPECT_EQ(SectorsOf(100.0f, 0.0f), std::vector<int>{1});
  EXPECT_EQ(SectorsOf(-100.0f, 0.0f), std::vector<int>{2});
  EXPECT_EQ(SectorsOf(0.0f, 100.0f), std::vector<int>{3});
  EXPECT_EQ(SectorsOf(0.0f, -100.0f), std::vector<int>{4});
}

TEST(FindNeighbourInSector, DiagonalsLieInNoSector) {
  for (const float x : {-100.0f, 100.0f}) {
    for (const float y : {-100.0f, 100.0f}) {
      EXPECT_TRUE(SectorsOf(x, y).empty()) << x << ' ' << y;
    }
  }
}

// 1351 / 780 lies just above the root of 3: the direction is 7 millionths of a degree nearer to the
// axis than 30 degrees.
TEST(FindNeighbourInSector, SectorsReachThirtyDegreesFromTheirAxis) {
  constexpr float kAlong = 675.5f;
  constexpr float kAcross = 390.0f;
  for (const float across : {-kAcross, kAcross}) {
    EXPECT_EQ(SectorsOf(kAlong, across), std::vector<int>{kTowardsLargerX});
    EXPECT_EQ(SectorsOf(-kAlong, across), std::vector<int>{kTowardsSmallerX});
    EXPECT_EQ(SectorsOf(across, kAlong), std::vector<int>{kTowardsLargerY});
    EXPECT_EQ(SectorsOf(across, -kAlong), std::vector<int>{kTowardsSmallerY});
  }
}

// 989 / 571 lies just below it: 25 millionths of a degree too far.
TEST(FindNeighbourInSector, SectorsReachNoFarther) {
  constexpr float kAlong = 494.5f;
  constexpr float kAcross = 285.5f;
  for (const float along : {-kAlong, kAlong}) {
    for (const float across : {-kAcross, kAcross}) {
      EXPECT_TRUE(SectorsOf(along, across).empty()) << along << ' ' << across;
      EXPECT_TRUE(SectorsOf(across, along).empty()) << across << ' ' << along;
    }
  }
}

// 18817 / 10864 is so near to the root of 3 that the direction, 29.99999996 degrees, becomes
// 30.0000005 through pi cut to 3.1415926. All directions grow by that, up to half a turn; the
// negative ones fall.
TEST(FindNeighbourInSector, PiCutToSevenDigitsMovesTheBounds) {
  constexpr float kAlong = 588.03125f;
  constexpr float kAcross = 339.5f;
  EXPECT_TRUE(SectorsOf(kAlong, kAcross).empty());   // above 30
  EXPECT_TRUE(SectorsOf(kAlong, -kAcross).empty());  // below 330
  EXPECT_EQ(SectorsOf(-kAlong, kAcross), std::vector<int>{kTowardsSmallerX});
  EXPECT_EQ(SectorsOf(-kAlong, -kAcross), std::vector<int>{kTowardsSmallerX});
  EXPECT_EQ(SectorsOf(kAcross, kAlong), std::vector<int>{kTowardsLargerY});
  EXPECT_TRUE(SectorsOf(-kAcross, kAlong).empty());   // above 120
  EXPECT_TRUE(SectorsOf(-kAcross, -kAlong).empty());  // below 240
  EXPECT_EQ(SectorsOf(kAcross, -kAlong), std::vector<int>{kTowardsSmallerY});
}

// The one bound of the eight that a direction in single precision can hit: 150 degrees to the bit.
// No sector holds its bounds.
TEST(FindNeighbourInSector, TheBoundOfASectorLiesInNone) {
  constexpr float kAlong = -0x1.e0b752p+8f;
  constexpr float kAcross = 0x1.158aa6p+8f;
  EXPECT_TRUE(SectorsOf(kAlong, kAcross).empty());
  EXPECT_EQ(SectorsOf(std::nextafter(kAlong, -1000.0f), kAcross),
            std::vector<int>{kTowardsSmallerX});
}

TEST(FindNeighbourInSector, OtherSectorsHoldNothing) {
  const PointList points = {MakePoint(1, 0, 0, 100.0f, 0.0f), MakePoint(2, 0, 0, -100.0f, 0.0f),
                            MakePoint(3, 0, 0, 0.0f, 100.0f), MakePoint(4, 0, 0, 0.0f, -100.0f)};
  for (const int sector : {0, 5, -1, 100}) {
    EXPECT_EQ(NeighbourId(points, static_cast<Sector>(sector)), kNone) << sector;
  }
}

TEST(FindNeighbourInSector, ANeighbourIsMoreThanFivePixelsAway) {
  EXPECT_TRUE(SectorsOf(0.0f, 0.0f).empty());
  EXPECT_TRUE(SectorsOf(4.0f, 0.0f).empty());
  EXPECT_TRUE(SectorsOf(5.0f, 0.0f).empty());
  EXPECT_TRUE(SectorsOf(5.0f, 1e-4f).empty());  // 5 in single precision
  EXPECT_EQ(SectorsOf(std::nextafter(5.0f, 6.0f), 0.0f), std::vector<int>{kTowardsLargerX});
}

TEST(FindNeighbourInSector, TwoPointsWithinFivePixelsAreNotNeighbours) {
  const PointList points = {At(100.0f, 100.0f), At(104.0f, 101.0f)};
  CalibrationPoint found;
  for (const Sector sector : kSectors) {
    EXPECT_FALSE(FindNeighbourInSector(points, points[0], found, sector)) << sector;
    EXPECT_FALSE(FindNeighbourInSector(points, points[1], found, sector)) << sector;
  }
}

TEST(FindNeighbourInSector, ANeighbourIsLessThanThousandPixelsAway) {
  EXPECT_TRUE(SectorsOf(1000.0f, 0.0f).empty());
  EXPECT_EQ(SectorsOf(std::nextafter(1000.0f, 0.0f), 0.0f), std::vector<int>{kTowardsLargerX});
}

TEST(FindNeighbourInSector, TheNearestPointOfTheSectorIsTaken) {
  EXPECT_EQ(NeighbourId({MakePoint(1, 0, 0, 90.0f, 0.0f), MakePoint(2, 0, 0, 60.0f, 20.0f),
                         MakePoint(3, 0, 0, 0.0f, 30.0f), MakePoint(4, 0, 0, 70.0f, 0.0f)},
                        kTowardsLargerX),
            2);
}

TEST(FindNeighbourInSector, OfEquallyNearPointsTheFirstIsTaken) {
  EXPECT_EQ(NeighbourId({MakePoint(1, 0, 0, 60.0f, 11.0f), MakePoint(2, 0, 0, 60.0f, -10.0f),
                         MakePoint(3, 0, 0, 60.0f, 10.0f)},
                        kTowardsLargerX),
            2);
}

TEST(FindNeighbourInSector, DirectionAndDistanceStartAtTheGivenPoint) {
  CalibrationPoint found = {};
  EXPECT_TRUE(
      FindNeighbourInSector({MakePoint(1, 0, 0, 10.0f, 300.0f), MakePoint(2, 0, 0, 350.0f, 300.0f),
                             MakePoint(3, 0, 0, 290.0f, 300.0f)},
                            At(300.0f, 300.0f), found, kTowardsSmallerX));
  EXPECT_EQ(found.id, 3);
}

TEST(FindNeighbourInSector, TheWholeRecordIsCopied) {
  const CalibrationPoint point = Marked(MakePoint(7, 8, 9, 20.0f, 1.0f), 40);
  CalibrationPoint found = {};
  ASSERT_TRUE(FindNeighbourInSector({point}, At(0.0f, 0.0f), found, kTowardsLargerX));
  EXPECT_EQ(std::memcmp(&found, &point, sizeof point), 0);
}

TEST(FindNeighbourInSector, NoPointsAndPointsThatAreNotNumbersHoldNothing) {
  for (const Sector sector : kSectors) {
    EXPECT_EQ(NeighbourId({}, sector), kNone);
    EXPECT_EQ(NeighbourId({At(kNan, 0.0f), At(0.0f, kNan)}, sector), kNone);
  }
}

}  // namespace
}  // namespace quorvex::tests
