#include "preprocess/outline_tracing.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/gray_image.h"

namespace quorvex::tests {
namespace {

constexpr std::size_t kRays = 720;

// Rays along the axes, from the direction of growing x.
constexpr std::size_t kRight = 0;
constexpr std::size_t kTop = 180;  // towards growing y
constexpr std::size_t kLeft = 360;
constexpr std::size_t kBottom = 540;

// Columns `left` to `right` and rows `bottom` to `top`, inclusive.
void Fill(GrayImage& image, int left, int right, int bottom, int top, unsigned char level) {
  for (int y = bottom; y <= top; ++y) {
    for (int x = left; x <= right; ++x) {
      image.Data()[PixelOffset(x, y, image.Width())] = level;
    }
  }
}

GrayImage Uniform(int width, int height, unsigned char level) {
  GrayImage image(width, height);
  image.Fill(level);
  return image;
}

OutlineList Traced(const GrayImage& image) {
  OutlineList outline;
  EXPECT_TRUE(TraceTargetOutline(image.Data(), image.Width(), image.Height(), outline));
  EXPECT_EQ(outline.size(), kRays);
  outline.resize(kRays);
  return outline;
}

// A white image of 128 x 128 pixels whose columns `first` to `last` are black; the rays start at
// (64, 64).
PixelPosition RightOfBand(int first, int last) {
  GrayImage image = Uniform(128, 128, 255);
  Fill(image, first, last, 0, 127, 0);
  return Traced(image)[kRight];
}

// The same with a black line along the ray to the right, from column 70 on.
PixelPosition RightAlongLine(int bottom, int top, unsigned char surroundings = 255) {
  GrayImage image = Uniform(128, 128, surroundings);
  Fill(image, 70, 127, bottom, top, 0);
  return Traced(image)[kRight];
}

TEST(ImageCentre, IsHalfTheSizeCut) {
  EXPECT_EQ(ImageCentre(64, 48), (PixelPosition{32, 24}));
  EXPECT_EQ(ImageCentre(65, 1), (PixelPosition{32, 0}));
}

TEST(RayOffset, AddsOneHalfAndCutsTowardsZero) {
  EXPECT_EQ(RayOffset(1, -0.7, 0.7), (PixelPosition{0, 1}));
  EXPECT_EQ(RayOffset(3, -1.0, 1.0), (PixelPosition{-2, 3}));
}

TEST(RayOffset, NarrowsTheProductBeforeRounding) {
  // The product is just above -52.5, as a float it is -52.5.
  EXPECT_EQ(RayOffset(105, -0.49999998509046656, 0.0).x, -52);
}

TEST(OutlineTracing, AppendsOnePointForEachRay) {
  const GrayImage image = Uniform(64, 64, 0);
  OutlineList outline = {{7, 8}};
  EXPECT_TRUE(TraceTargetOutline(image.Data(), 64, 64, outline));
  EXPECT_EQ(outline.size(), 1 + kRays);
  EXPECT_EQ(outline[0], (PixelPosition{7, 8}));
}

TEST(OutlineTracing, BlackImageYieldsTheCentre) {
  for (const PixelPosition& point : Traced(Uniform(64, 64, 0))) {
    ASSERT_EQ(point, (PixelPosition{32, 32}));
  }
}

TEST(OutlineTracing, WhiteImageYieldsTheLastSampleOfEachRay) {
  // Rays are 44 samples long; towards smaller coordinates a radius of r reaches r - 1 pixels along
  // the axes, and 31.11 pixels give -30 along the diagonals.
  const OutlineList outline = Traced(Uniform(64, 64, 255));
  EXPECT_EQ(outline[kRight], (PixelPosition{63, 32}));
  EXPECT_EQ(outline[90], (PixelPosition{63, 63}));
  EXPECT_EQ(outline[kTop], (PixelPosition{32, 63}));
  EXPECT_EQ(outline[270], (PixelPosition{2, 63}));
  EXPECT_EQ(outline[kLeft], (PixelPosition{0, 32}));
  EXPECT_EQ(outline[450], (PixelPosition{2, 2}));
  EXPECT_EQ(outline[kBottom], (PixelPosition{32, 0}));
  EXPECT_EQ(outline[630], (PixelPosition{63, 2}));
}

TEST(OutlineTracing, RayEndsOneShortOfTheDistanceToTheCorner) {
  // The centre is (10, 50): a ray has 49 samples at most.
  EXPECT_EQ(Traced(Uniform(20, 100, 255))[kTop], (PixelPosition{10, 99}));
  // The centre is (4, 4), the corner 5.66 away: four samples.
  EXPECT_EQ(Traced(Uniform(9, 9, 255))[kRight], (PixelPosition{8, 4}));
  // The centre is (2, 2), the corner 2.83 away: one sample, though column 4 is inside.
  EXPECT_EQ(Traced(Uniform(5, 5, 255))[kRight], (PixelPosition{3, 2}));
}

// 4097 squared is no float: in single precision rays would be one sample shorter.
TEST(OutlineTracing, DistanceToTheCornerIsFormedInDoublePrecision) {
  EXPECT_EQ(Traced(Uniform(8194, 1, 255))[kRight], (PixelPosition{8193, 0}));
  EXPECT_EQ(Traced(Uniform(1, 8194, 255))[kTop], (PixelPosition{0, 8193}));
}

TEST(OutlineTracing, ImageTooSmallForASampleYieldsTheCentre) {
  for (const PixelPosition& point : Traced(Uniform(2, 2, 255))) {
    ASSERT_EQ(point, (PixelPosition{1, 1}));
  }
}

// In double precision both would end one pixel further to the right or the top.
TEST(OutlineTracing, AnglesAreFormedInSinglePrecision) {
  const OutlineList outline = Traced(Uniform(256, 256, 255));
  EXPECT_EQ(outline[240], (PixelPosition{55, 255}));
  EXPECT_EQ(outline[420], (PixelPosition{0, 54}));
}

TEST(OutlineTracing, PointIsTheFirstBlackPixelOfTheDarkRun) {
  GrayImage image(128, 128);
  for (int y = 0; y < 128; ++y) {
    for (int x = 0; x < 128; ++x) {
      const bool isDisk = (x - 64) * (x - 64) + (y - 64) * (y - 64) <= 20 * 20;
      image.Data()[PixelOffset(x, y, 128)] = isDisk ? 255 : 0;
    }
  }
  const OutlineList outline = Traced(image);
  EXPECT_EQ(outline[kRight], (PixelPosition{85, 64}));
  EXPECT_EQ(outline[kTop], (PixelPosition{64, 85}));
  EXPECT_EQ(outline[kLeft], (PixelPosition{43, 64}));
  EXPECT_EQ(outline[kBottom], (PixelPosition{64, 43}));
}

TEST(OutlineTracing, StrokeAcrossTheRayDoesNotEndIt) {
  EXPECT_EQ(RightOfBand(85, 90), (PixelPosition{127, 64}));
  EXPECT_EQ(RightOfBand(85, 99), (PixelPosition{127, 64}));
}

// The run is measured from its first sample: the end shows at the sample 16 pixels further out.
TEST(OutlineTracing, BandEndsTheRayFromSeventeenPixelsOn) {
  EXPECT_EQ(RightOfBand(85, 85 + 15), (PixelPosition{127, 64}));
  EXPECT_EQ(RightOfBand(85, 85 + 16), (PixelPosition{85, 64}));
}

TEST(OutlineTracing, DarkRunAtTheEdgeOfTheImageMayBeTooShort) {
  EXPECT_EQ(RightOfBand(112, 127), (PixelPosition{127, 64}));
  EXPECT_EQ(RightOfBand(111, 127), (PixelPosition{111, 64}));
}

TEST(OutlineTracing, DarkRunFromTheCentreIsMeasuredFromTheCentre) {
  EXPECT_EQ(RightOfBand(64, 64 + 15), (PixelPosition{127, 64}));
  EXPECT_EQ(RightOfBand(64, 64 + 16), (PixelPosition{64, 64}));
}

TEST(OutlineTracing, WhiteWithinAStrokeStartsTheRunAgain) {
  GrayImage image = Uniform(128, 128, 255);
  Fill(image, 85, 110, 0, 127, 0);
  Fill(image, 95, 95, 0, 127, 255);
  EXPECT_EQ(Traced(image)[kRight], (PixelPosition{127, 64}));
  Fill(image, 111, 127, 0, 127, 0);
  EXPECT_EQ(Traced(image)[kRight], (PixelPosition{96, 64}));
}

// Across the ray to the right the rows 62 to 67 are examined: -3 to 3, one half added and cut.
TEST(OutlineTracing, LineAlongTheRayDoesNotEndItWhileWhiteIsWithinReach) {
  EXPECT_EQ(RightAlongLine(64, 64), (PixelPosition{127, 64}));
  EXPECT_EQ(RightAlongLine(62, 66), (PixelPosition{127, 64}));
  EXPECT_EQ(RightAlongLine(63, 67), (PixelPosition{127, 64}));
  EXPECT_EQ(RightAlongLine(40, 66), (PixelPosition{127, 64}));
}

TEST(OutlineTracing, LineAlongTheRayOfSixRowsEndsIt) {
  EXPECT_EQ(RightAlongLine(62, 67), (PixelPosition{70, 64}));
}

TEST(OutlineTracing, OnlyFullWhiteCountsAcrossTheRay) {
  EXPECT_EQ(RightAlongLine(64, 64, 254), (PixelPosition{70, 64}));
  EXPECT_EQ(RightAlongLine(64, 64, 255), (PixelPosition{127, 64}));
}

TEST(OutlineTracing, DiagonalLineAlongTheRayIsLookedAcross) {
  // Three pixels of black along the diagonal; three steps across it end in white, three steps along
  // it do not.
  GrayImage image = Uniform(128, 128, 255);
  for (int x = 70; x < 128; ++x) {
    Fill(image, x, x, std::max(70, x - 1), std::min(127, x + 1), 0);
  }
  EXPECT_EQ(Traced(image)[90], (PixelPosition{127, 127}));
}

TEST(OutlineTracing, EveryLevelButZeroIsTarget) {
  EXPECT_EQ(Traced(Uniform(64, 64, 1))[kRight], (PixelPosition{63, 32}));
}

TEST(OutlineTracing, WhiteOutsideTheImageIsNotLookedFor) {
  // Of the six rows within reach the last would lie beyond the image.
  GrayImage image = Uniform(128, 5, 0);
  Fill(image, 64, 69, 0, 4, 255);
  EXPECT_EQ(Traced(image)[kRight], (PixelPosition{70, 2}));
}

}  // namespace
}  // namespace quorvex::tests
