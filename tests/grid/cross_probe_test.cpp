#include "grid/cross_probe.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <set>
#include <vector>

#include "tests/support/points.h"
#include "tests/support/stroke_image.h"

namespace quorvex::tests {
namespace {

constexpr int kWidth = 500;
constexpr int kHeight = 500;

// A walk to the right from (50, 250): step t stands at x = 50 + t.
class ProbeNextCrossTest : public ::testing::Test {
 protected:
  // `count` stroke pixels across step t of the walk to the right.
  void DrawAcross(int t, int count) { DrawBox(image, 50 + t, 251, 50 + t, 250 + count); }

  bool Probe(int steps, PointF start = {50.0f, 250.0f}, ProbeMode mode = kProbeRight,
             float dx = 1.0f, float dy = 0.0f) {
    next = {-7.0f, -7.0f};
    return ProbeNextCross(image.Data(), kWidth, kHeight, start, mode, dx, dy, steps, rowSpans,
                          columnSpans, next);
  }

  GrayImage image{kWidth, kHeight};
  PixelSpanList rowSpans = FullSpans(kHeight, kWidth);
  PixelSpanList columnSpans = FullSpans(kWidth, kHeight);
  PointF next;
};

TEST_F(ProbeNextCrossTest, FindsNothingInAnEmptyImage) {
  EXPECT_FALSE(Probe(300));
  EXPECT_EQ(Bits(next.x), Bits(-7.0f));
}

TEST_F(ProbeNextCrossTest, TheFirstBoxReachesFromStep119To121AndStep123) {
  DrawAcross(123, 41);
  EXPECT_TRUE(Probe(300));
  EXPECT_EQ(Bits(next.x), Bits(171.0f));  // step 121
  EXPECT_EQ(Bits(next.y), Bits(250.0f));
}

TEST_F(ProbeNextCrossTest, FortyPixelsAreNotEnough) {
  DrawAcross(123, 40);
  EXPECT_FALSE(Probe(300));
}

TEST_F(ProbeNextCrossTest, FourNeighbouringEntriesAddUp) {
  DrawAcross(119, 10);
  DrawAcross(120, 10);
  DrawAcross(121, 10);
  DrawAcross(123, 11);
  EXPECT_TRUE(Probe(300));
  EXPECT_EQ(Bits(next.x), Bits(171.0f));
}

TEST_F(ProbeNextCrossTest, StrokesAtStep118AreTakenOffBeforeTheFirstTest) {
  DrawAcross(118, 90);
  EXPECT_FALSE(Probe(300));
}

TEST_F(ProbeNextCrossTest, Entry122IsNeverAdded) {
  DrawAcross(122, 90);
  EXPECT_FALSE(Probe(300));
}

TEST_F(ProbeNextCrossTest, Entry122IsTakenOffOnce) {
  DrawAcross(122, 41);
  DrawAcross(127, 81);
  EXPECT_FALSE(Probe(300));  // 81 - 41
  DrawAcross(127, 82);
  EXPECT_TRUE(Probe(300));
  EXPECT_EQ(Bits(next.x), Bits(175.0f));  // 122 + 3 steps
}

TEST_F(ProbeNextCrossTest, LaterBoxesLookFiveEntriesAhead) {
  DrawAcross(200, 41);
  EXPECT_TRUE(Probe(300));
  EXPECT_EQ(Bits(next.x), Bits(248.0f));  // 195 + 3 steps
  EXPECT_TRUE(Probe(201));
  EXPECT_FALSE(Probe(200));
}

TEST_F(ProbeNextCrossTest, AProfileOf121EntriesIsTooShort) {
  DrawAcross(120, 90);
  EXPECT_FALSE(Probe(121));
  EXPECT_TRUE(Probe(122));
  EXPECT_EQ(Bits(next.x), Bits(171.0f));
  EXPECT_FALSE(Probe(0));
  EXPECT_FALSE(Probe(-5));
}

TEST_F(ProbeNextCrossTest, OnlyLevel255IsStroke) {
  DrawBox(image, 173, 200, 173, 300, 254);
  EXPECT_FALSE(Probe(300));
}

// Along an axis one side reaches 99 pixels, the other 98, and the centre counts twice.
TEST_F(ProbeNextCrossTest, TheSamplesAlongAnAxisAreLopsided) {
  DrawBox(image, 173, 250 + 60, 173, 250 + 100);
  EXPECT_FALSE(Probe(300));  // 40 of 41 are reached
  DrawBox(image, 173, 250 - 99, 173, 250 - 99);
  EXPECT_FALSE(Probe(300));
  DrawBox(image, 173, 250 - 98, 173, 250 - 98);
  EXPECT_TRUE(Probe(300));
}

TEST_F(ProbeNextCrossTest, TheCentreCountsTwiceAlongAnAxis) {
  DrawBox(image, 173, 250, 173, 250 + 38);
  EXPECT_FALSE(Probe(300));  // 39 + 1
  DrawBox(image, 173, 250, 173, 250 + 39);
  EXPECT_TRUE(Probe(300));
}

TEST_F(ProbeNextCrossTest, TheOutermostPixelsOfTheImageDoNotCount) {
  const PointF start = {50.0f, 60.0f};
  DrawBox(image, 173, 0, 173, 40);
  EXPECT_FALSE(Probe(300, start));
  DrawBox(image, 173, 41, 173, 41);
  EXPECT_TRUE(Probe(300, start));
  DrawBox(image, 173, 0, 173, 41, 0);
  DrawBox(image, 173, kHeight - 41, 173, kHeight - 1);
  EXPECT_FALSE(Probe(300, {50.0f, 440.0f}));
  DrawBox(image, 173, kHeight - 42, 173, kHeight - 42);
  EXPECT_TRUE(Probe(300, {50.0f, 440.0f}));
}

TEST_F(ProbeNextCrossTest, TheOutermostColumnsDoNotCountEither) {
  const PointF nearLeft = {60.0f, 50.0f};
  DrawBox(image, 0, 173, 40, 173);
  EXPECT_FALSE(Probe(300, nearLeft, kProbeDown, 0.0f, 1.0f));
  DrawBox(image, 41, 173, 41, 173);
  EXPECT_TRUE(Probe(300, nearLeft, kProbeDown, 0.0f, 1.0f));
  const PointF nearRight = {440.0f, 50.0f};
  DrawBox(image, kWidth - 41, 173, kWidth - 1, 173);
  EXPECT_FALSE(Probe(300, nearRight, kProbeDown, 0.0f, 1.0f));
  DrawBox(image, kWidth - 42, 173, kWidth - 42, 173);
  EXPECT_TRUE(Probe(300, nearRight, kProbeDown, 0.0f, 1.0f));
}

TEST_F(ProbeNextCrossTest, EachModeWalksItsWay) {
  DrawBox(image, 327, 200, 327, 300);
  DrawBox(image, 200, 173, 300, 173);
  EXPECT_FALSE(Probe(300, {450.0f, 250.0f}, kProbeLeft, -1.0f, 0.0f));
  EXPECT_TRUE(Probe(300, {449.0f, 250.0f}, kProbeLeft, -1.0f, 0.0f));
  EXPECT_TRUE(Probe(300, {250.0f, 50.0f}, kProbeDown, 0.0f, 1.0f));
  EXPECT_EQ(Bits(next.y), Bits(171.0f));
  DrawBox(image, 200, 327, 300, 327);
  EXPECT_TRUE(Probe(300, {250.0f, 449.0f}, kProbeUp, 0.0f, -1.0f));
}

TEST_F(ProbeNextCrossTest, StopsFiftyPixelsBeforeTheTargetsBorder) {
  DrawAcross(123, 41);
  EXPECT_FALSE(Probe(300, {49.0f, 250.0f}));  // the start itself is too near
  // The walk must reach step 123, x = 173.
  rowSpans[250] = {0, 173 + 50};
  EXPECT_TRUE(Probe(300));
  rowSpans[250] = {0, 173 + 49};
  EXPECT_FALSE(Probe(300));
  rowSpans[250] = {1, kWidth - 1};
  EXPECT_FALSE(Probe(300));
}

TEST_F(ProbeNextCrossTest, ColumnModesAskTheColumnsSpan) {
  DrawBox(image, 210, 173, 300, 173);
  rowSpans.assign(rowSpans.size(), PixelSpan{kWidth, 0});
  const PointF start = {250.0f, 50.0f};
  columnSpans[250] = {0, 173 + 50};
  EXPECT_TRUE(Probe(300, start, kProbeDown, 0.0f, 1.0f));
  columnSpans[250] = {0, 173 + 49};
  EXPECT_FALSE(Probe(300, start, kProbeDown, 0.0f, 1.0f));
  columnSpans[250] = {1, kHeight - 1};
  EXPECT_FALSE(Probe(300, start, kProbeDown, 0.0f, 1.0f));
}

TEST_F(ProbeNextCrossTest, AnEmptySpanEndsTheWalkAtOnce) {
  DrawAcross(123, 41);
  rowSpans.assign(rowSpans.size(), PixelSpan{kWidth, 0});
  EXPECT_FALSE(Probe(300));
}

TEST_F(ProbeNextCrossTest, OutsideTheImageTheWholeWidthIsTheSpan) {
  rowSpans.assign(rowSpans.size(), PixelSpan{kWidth, 0});
  DrawBox(image, 173, 1, 173, 60);
  EXPECT_TRUE(Probe(300, {50.0f, -5.0f}));
  EXPECT_EQ(Bits(next.y), Bits(-5.0f));
}

// The offset is rounded, the sum with the start is cut: 121 * 0.6 + 0.5 gives 73, 121 * 0.8 + 0.5
// gives 97.
TEST_F(ProbeNextCrossTest, RoundsTheOffsetAndCutsTheSum) {
  DrawBox(image, 51, 51, 448, 448);  // strokes everywhere
  EXPECT_TRUE(Probe(300, {60.9f, 70.9f}, kProbeRight, 0.6f, 0.8f));
  EXPECT_EQ(Bits(next.x), Bits(133.0f));
  EXPECT_EQ(Bits(next.y), Bits(167.0f));
}

// The same in the plainest form, with all entries kept apart.
bool PlainProbe(const GrayImage& image, PointF start, float dx, float dy, int steps, PointF& next) {
  const auto cut = [](double value) { return static_cast<int>(value); };
  const auto along = [&cut](int t, float direction, float from) {
    const float offset = static_cast<float>(t) * direction;
    const int whole = cut(static_cast<double>(offset) + 0.5);
    return cut(static_cast<double>(static_cast<float>(whole) + from));
  };
  std::vector<int> counts;
  for (int t = 0; t < steps; ++t) {
    const int xt = along(t, dx, start.x);
    const int yt = along(t, dy, start.y);
    if (xt < 50 || xt > kWidth - 1 - 50) {
      break;
    }
    int count = 0;
    for (int s = -99; s <= 99; ++s) {
      const int distance = s < 0 ? -s : s;
      const double sx = static_cast<double>(static_cast<float>(distance) * -dy);
      const double sy = static_cast<double>(static_cast<float>(distance) * dx);
      const int x = xt + (s < 0 ? cut(0.5 - sx) : cut(sx + 0.5));
      const int y = yt + (s < 0 ? cut(0.5 - sy) : cut(sy + 0.5));
      count += x >= 1 && x <= kWidth - 2 && y >= 1 && y <= kHeight - 2 &&
                       image.Data()[y * kWidth + x] == 255
                   ? 1
                   : 0;
    }
    counts.push_back(count);
  }
  const int n = static_cast<int>(counts.size());
  if (n <= 121) {
    return false;
  }
  for (int k = 118; k + 3 < n; ++k) {
    int sum = counts[119] + counts[120] + counts[121];
    for (int j = 118; j <= k; ++j) {
      sum += j + 5 < n ? counts[j + 5] : 0;
      sum -= j > 118 ? counts[j] : 0;
    }
    if (sum > 40) {
      next = {static_cast<float>(along(k + 3, dx, start.x)),
              static_cast<float>(along(k + 3, dy, start.y))};
      return true;
    }
  }
  return false;
}

TEST_F(ProbeNextCrossTest, MatchesThePlainFormInSlantedDirections) {
  std::mt19937 random(43);
  std::uniform_real_distribution<float> slope(-0.7f, 0.7f);
  std::uniform_real_distribution<float> coordinate(150.0f, 350.0f);
  std::set<float> found;
  int missed = 0;
  for (int trial = 0; trial < 60; ++trial) {
    std::bernoulli_distribution isStroke(0.033);
    for (std::size_t i = 0; i < image.Size(); ++i) {
      image.Data()[i] = isStroke(random) ? 255 : 0;
    }
    const float dy = slope(random);
    const float dx = std::sqrt(1.0f - dy * dy) * (trial % 2 == 0 ? 1.0f : -1.0f);
    const PointF start = {dx > 0.0f ? 60.3f : 430.7f, coordinate(random)};
    PointF expected = {};
    const bool isExpected = PlainProbe(image, start, dx, dy, 280, expected);
    const bool isFound = Probe(280, start, dx > 0.0f ? kProbeRight : kProbeLeft, dx, dy);
    ASSERT_EQ(isFound, isExpected) << "trial " << trial;
    if (isFound) {
      ASSERT_EQ(Bits(next.x), Bits(expected.x)) << "trial " << trial;
      ASSERT_EQ(Bits(next.y), Bits(expected.y)) << "trial " << trial;
      found.insert(next.x);
    } else {
      ++missed;
    }
  }
  EXPECT_GT(found.size(), 10u);  // else the trials would not tell one step from another
  EXPECT_LT(missed, 50);
}

}  // namespace
}  // namespace quorvex::tests
