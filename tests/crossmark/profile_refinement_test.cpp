#include "crossmark/profile_refinement.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "crossmark/line_fit.h"
#include "crossmark/patch.h"
#include "tests/support/lines.h"
#include "tests/support/patches.h"

namespace quorvex::tests {
namespace {

constexpr unsigned char kGround = 200;
constexpr unsigned char kDark = 50;

using Coefficients = std::vector<std::uint32_t>;  // a, b and c as bits

GrayImage Patch() { return UniformImage(kPatchSize, kPatchSize, kGround); }

Coefficients CoefficientsOf(const LineSegment& line) {
  return BitsOf(std::vector<float>{line.a, line.b, line.c});
}

Coefficients Refined(const GrayImage& patch, float x, float y, LineSegment line) {
  EXPECT_TRUE(RefineLineByProfile(patch.Data(), x, y, line));
  return CoefficientsOf(line);
}

// Along a horizontal line with normal (0, -1) the stations run to the right and the samples from
// ten rows after the line to nine rows before it.
Coefficients RefinedRow(const GrayImage& patch, float x, float y) {
  return Refined(patch, x, y, MakeLine(0.0f, -1.0f, y));
}

// The line through a profile.
Coefficients Through(const PointFList& profile) {
  LineSegment line;
  EXPECT_TRUE(FitLine(profile, line.a, line.b, line.c, line.angle));
  return CoefficientsOf(line);
}

const Coefficients kKept = BitsOf(std::vector<float>{0.0f, -1.0f, 12345.0f});

Coefficients RefinedOrKept(const GrayImage& patch, float x, float y) {
  return Refined(patch, x, y, MakeLine(0.0f, -1.0f, 12345.0f));
}

TEST(RefineLineByProfile, HorizontalLineMovesToTheDarkestRow) {
  GrayImage patch = Patch();
  DrawRow(patch, 83, 0, 159, kDark);
  EXPECT_EQ(RefinedRow(patch, 80.0f, 80.0f), BitsOf(std::vector<float>{0.0f, -1.0f, 83.0f}));
}

TEST(RefineLineByProfile, VerticalLineMovesToTheDarkestColumn) {
  GrayImage patch = Patch();
  DrawColumn(patch, 77, 0, 159, kDark);
  EXPECT_EQ(Refined(patch, 80.0f, 80.0f, MakeLine(1.0f, 0.0f, -80.0f)),
            BitsOf(std::vector<float>{1.0f, 0.0f, -77.0f}));
}

TEST(RefineLineByProfile, FirstOfEquallyDarkSamplesWins) {
  GrayImage patch = Patch();
  DrawRow(patch, 75, 0, 159, kDark);
  DrawRow(patch, 85, 0, 159, kDark);
  EXPECT_EQ(RefinedRow(patch, 80.0f, 80.0f), Through(RowPoints(85.0f, 30, 129)));
}

TEST(RefineLineByProfile, WhitePatchIsAllEquallyDark) {
  // Level 255 is darker than no sample at all; the first one stands ten rows off.
  const GrayImage patch = UniformImage(kPatchSize, kPatchSize, 255);
  EXPECT_EQ(RefinedRow(patch, 80.0f, 80.0f), Through(RowPoints(90.0f, 30, 129)));
}

TEST(RefineLineByProfile, NinthSampleBehindTheLineIsTheLast) {
  GrayImage patch = Patch();
  DrawRow(patch, 71, 0, 159, kDark);
  EXPECT_EQ(RefinedRow(patch, 80.0f, 80.0f), Through(RowPoints(71.0f, 30, 129)));
  EXPECT_EQ(RefinedRow(patch, 80.0f, 81.0f), Through(RowPoints(91.0f, 30, 129)));
}

TEST(RefineLineByProfile, StationsRunFromFiftyBeforeToFortyNineBehind) {
  GrayImage patch = Patch();
  DrawRow(patch, 83, 0, 159, kDark);
  for (const int outside : {29, 130}) {
    PixelAt(patch, outside, 75) = 0;
  }
  EXPECT_EQ(RefinedRow(patch, 80.0f, 80.0f), Through(RowPoints(83.0f, 30, 129)));
  for (const int inside : {30, 129}) {
    PixelAt(patch, inside, 75) = 0;
  }
  EXPECT_EQ(RefinedRow(patch, 80.0f, 80.0f),
            Through(Joined(Joined(RowPoints(75.0f, 30, 30), RowPoints(83.0f, 31, 128)),
                           RowPoints(75.0f, 129, 129))));
}

TEST(RefineLineByProfile, StationsWithoutASampleAddNothing) {
  GrayImage patch = Patch();
  DrawRow(patch, 83, 0, 159, kDark);
  PixelAt(patch, 0, 75) = 0;
  // The station at -1 reads column 0: -0.5 is cut to it.
  EXPECT_EQ(RefinedRow(patch, 20.0f, 80.0f),
            Through(Joined(RowPoints(75.0f, -1, 0), RowPoints(83.0f, 1, 69))));
  PixelAt(patch, 159, 75) = 0;
  EXPECT_EQ(RefinedRow(patch, 140.0f, 80.0f),
            Through(Joined(RowPoints(83.0f, 90, 158), RowPoints(75.0f, 159, 159))));
}

TEST(RefineLineByProfile, ColumnsAreCutTowardsZeroAfterAddingOneHalf) {
  // Stations at -1.25, -0.25 and so on: -0.75 is cut to column 0, too.
  GrayImage patch = Patch();
  DrawRow(patch, 83, 0, 159, kDark);
  PixelAt(patch, 0, 75) = 0;
  PointFList profile = {{-1.25f, 75.0f}, {-0.25f, 75.0f}};
  for (int x = 1; x <= 69; ++x) {
    profile.push_back({static_cast<float>(x) - 0.25f, 83.0f});
  }
  EXPECT_EQ(RefinedRow(patch, 19.75f, 80.0f), Through(profile));
}

TEST(RefineLineByProfile, RowsAreCutTowardsZeroAfterAddingOneHalf) {
  GrayImage patch = Patch();
  DrawRow(patch, 0, 0, 159, kDark);
  // Samples at 11.25, 10.25 ... 0.25, -0.75, -1.75: 0.25 comes first of those that read row 0.
  EXPECT_EQ(RefinedRow(patch, 80.0f, 1.25f), Through(RowPoints(0.25f, 30, 129)));
  // Of 9.5 ... 0.5, -0.5, -1.5 the sample at 0.5 reads row 1, that at -0.5 row 0.
  EXPECT_EQ(RefinedRow(patch, 80.0f, 0.5f), Through(RowPoints(-0.5f, 30, 129)));
}

TEST(RefineLineByProfile, StationMustLieOnThePatchWhateverItsSamples) {
  const GrayImage patch = Patch();
  EXPECT_EQ(RefinedOrKept(patch, 80.0f, 0.0f), Through(RowPoints(10.0f, 30, 129)));
  EXPECT_EQ(RefinedOrKept(patch, 80.0f, -0.25f), kKept);
  EXPECT_EQ(RefinedOrKept(patch, 80.0f, 160.0f), kKept);
  EXPECT_NE(RefinedOrKept(patch, 80.0f, std::nextafter(160.0f, 0.0f)), kKept);
}

TEST(RefineLineByProfile, SamplesBelowThePatchAreSkipped) {
  // Rows 165 to 160 are none; 159 is the first that counts.
  EXPECT_EQ(RefinedRow(Patch(), 80.0f, 155.0f), Through(RowPoints(159.0f, 30, 129)));
}

TEST(RefineLineByProfile, SamplesAboveThePatchAreSkipped) {
  // With normal (0, 1) the samples start above the patch. Of -5, -4 ... the sample at -1 is the
  // first that reads row 0: -0.5 is cut to it.
  const GrayImage patch = Patch();
  PointFList profile = RowPoints(-1.0f, 31, 130);
  std::reverse(profile.begin(), profile.end());
  EXPECT_EQ(Refined(patch, 80.0f, 5.0f, MakeLine(0.0f, 1.0f, -5.0f)), Through(profile));
}

TEST(RefineLineByProfile, FewerThanTwoProfilePointsKeepTheLine) {
  const GrayImage patch = Patch();
  EXPECT_EQ(RefinedOrKept(patch, 1000.0f, 80.0f), kKept);
  // The leftmost station alone lies on the patch, then it and its neighbour.
  EXPECT_EQ(RefinedOrKept(patch, 209.0f, 80.0f), kKept);
  EXPECT_NE(RefinedOrKept(patch, 208.0f, 80.0f), kKept);
}

TEST(RefineLineByProfile, NotANumberAndFarCentresKeepTheLine) {
  const GrayImage patch = Patch();
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(RefinedOrKept(patch, 80.0f, nan), kKept);
  EXPECT_EQ(RefinedOrKept(patch, 3e38f, 80.0f), kKept);
  EXPECT_EQ(RefinedOrKept(patch, -3e38f, 80.0f), kKept);
}

TEST(RefineLineByProfile, OtherFieldsStay) {
  GrayImage patch = Patch();
  DrawRow(patch, 83, 0, 159, kDark);
  LineSegment line = MakeLine(0.0f, -1.0f, 80.0f);
  line.angle = 0.25f;
  line.start = {1.0f, 2.0f};
  line.end = {3.0f, 4.0f};
  line.points = {{5.0f, 6.0f}};
  EXPECT_TRUE(RefineLineByProfile(patch.Data(), 80.0f, 80.0f, line));
  EXPECT_EQ(line.c, 83.0f);
  EXPECT_EQ(line.angle, 0.25f);
  EXPECT_EQ(BitsOf(PointFList{line.start, line.end}),
            BitsOf(PointFList{{1.0f, 2.0f}, {3.0f, 4.0f}}));
  EXPECT_EQ(BitsOf(line.points), BitsOf(PointFList{{5.0f, 6.0f}}));
}

// The profile written down plainly, each operation by itself.
PointFList PlainProfile(const GrayImage& patch, float x, float y, const LineSegment& line) {
  PointFList profile;
  for (int t = -50; t < 50; ++t) {
    const volatile float alongX = static_cast<float>(t) * line.b;
    const volatile float alongY = static_cast<float>(t) * line.a;
    const volatile float stationX = x - alongX;
    const volatile float stationY = y + alongY;
    int best = 300;
    PointF bestPoint = {0.0f, 0.0f};
    for (int s = -10; s < 10; ++s) {
      const volatile float acrossX = static_cast<float>(s) * line.a;
      const volatile float acrossY = static_cast<float>(s) * line.b;
      const volatile float sampleX = stationX + acrossX;
      const volatile float sampleY = stationY + acrossY;
      const int column = static_cast<int>(static_cast<double>(sampleX) + 0.5);
      const int row = static_cast<int>(static_cast<double>(sampleY) + 0.5);
      if (column < 0 || column > 159 || stationY < 0.0f || stationY >= 160.0f) {
        continue;
      }
      if (row < 0 || row > 159 || patch.Data()[160 * row + column] >= best) {
        continue;
      }
      best = patch.Data()[160 * row + column];
      bestPoint = {sampleX, sampleY};
    }
    if (best < 300) {
      profile.push_back(bestPoint);
    }
  }
  return profile;
}

TEST(RefineLineByProfile, SlantedLinesFollowTheSameArithmetic) {
  for (unsigned seed = 0; seed < 100; ++seed) {
    std::mt19937 random(seed);
    const GrayImage patch = RandomImage(kPatchSize, kPatchSize, {40, 90, 90, 200, 255}, random);
    const float angle = RandomFloat(random, -3.2f, 3.2f);
    const LineSegment line = MakeLine(std::sin(angle), -std::cos(angle), 0.0f);
    const float x = RandomFloat(random, 10.0f, 150.0f);
    const float y = RandomFloat(random, 10.0f, 150.0f);
    const PointFList profile = PlainProfile(patch, x, y, line);
    ASSERT_GE(profile.size(), 2u) << "seed " << seed;
    EXPECT_EQ(Refined(patch, x, y, line), Through(profile)) << "seed " << seed;
  }
}

}  // namespace
}  // namespace quorvex::tests
