#include "preprocess/convolution.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <utility>

#include "tests/support/bytes.h"
#include "tests/support/faults.h"

namespace quorvex::tests {
namespace {

using Kernel = std::array<float, 9>;

constexpr Kernel kVerticalGradient = {-1, -2, -1, 0, 0, 0, 1, 2, 1};
constexpr Kernel kIdentity = {0, 0, 0, 0, 1, 0, 0, 0, 0};

Bytes Convolved(Bytes image, int width, int height, const Kernel& kernel, float scale = 1.0f) {
  EXPECT_TRUE(Convolve3x3(image.data(), width, height, kernel.data(), scale, 0, 0, 0, 0));
  return image;
}

// The result at the centre of a uniform 3 x 3 image.
int CentreOfUniform(unsigned char level, const Kernel& kernel, float scale = 1.0f) {
  return Convolved(Bytes(12, level), 3, 3, kernel, scale)[5];
}

// Four pixels a row, six rows: below row 3 one level, from row 3 on another.
Bytes Step(unsigned char below, unsigned char above) {
  Bytes image(24, below);
  std::fill(image.begin() + 12, image.end(), above);
  return image;
}

TEST(Convolution, StepGivesItsGradientOnBothSides) {
  EXPECT_EQ(Convolved(Step(0, 10), 4, 6, kVerticalGradient), (Bytes{0,  0,  0,  0,   //
                                                                    0,  0,  0,  0,   //
                                                                    0,  40, 40, 0,   //
                                                                    10, 40, 40, 10,  //
                                                                    10, 0,  0,  10,  //
                                                                    10, 10, 10, 10}));
}

TEST(Convolution, MagnitudesAbove255AreStoredAs255) {
  EXPECT_EQ(Convolved(Step(0, 100), 4, 6, kVerticalGradient), (Bytes{0,   0,   0,   0,    //
                                                                     0,   0,   0,   0,    //
                                                                     0,   255, 255, 0,    //
                                                                     100, 255, 255, 100,  //
                                                                     100, 0,   0,   100,  //
                                                                     100, 100, 100, 100}));
}

TEST(Convolution, RisingAndFallingEdgesGiveTheSame) {
  EXPECT_EQ(Convolved(Step(0, 10), 4, 6, kVerticalGradient)[9], 40);
  EXPECT_EQ(Convolved(Step(10, 0), 4, 6, kVerticalGradient)[9], 40);
}

TEST(Convolution, EveryWeightHasItsNeighbour) {
  // Where a single pixel at (3, 3) appears when one weight alone is not zero.
  struct {
    std::size_t x;
    std::size_t y;
  } constexpr kSeenAt[9] = {{4, 2}, {3, 2}, {2, 2}, {4, 3}, {3, 3}, {2, 3}, {4, 4}, {3, 4}, {2, 4}};
  for (std::size_t index = 0; index < 9; ++index) {
    Bytes image(8 * 7, 0);
    image[8 * 3 + 3] = 70;
    Bytes expected(8 * 7, 0);
    expected[8 * kSeenAt[index].y + kSeenAt[index].x] = 70;
    Kernel kernel = {};
    kernel[index] = 1;
    EXPECT_EQ(Convolved(image, 8, 7, kernel), expected) << index;
  }
}

TEST(Convolution, MagnitudeIsRoundedHalfUp) {
  EXPECT_EQ(CentreOfUniform(5, kIdentity, 0.5f), 3);    // 2.5
  EXPECT_EQ(CentreOfUniform(5, kIdentity, -0.5f), 3);   // the sign goes first
  EXPECT_EQ(CentreOfUniform(9, kIdentity, 0.25f), 2);   // 2.25
  EXPECT_EQ(CentreOfUniform(11, kIdentity, 0.25f), 3);  // 2.75
  EXPECT_EQ(CentreOfUniform(255, kIdentity, 0.0f), 0);
}

TEST(Convolution, LargestLevelIs255) {
  EXPECT_EQ(CentreOfUniform(255, kIdentity), 255);
  EXPECT_EQ(CentreOfUniform(128, kIdentity, 2.0f), 255);  // 256
  EXPECT_EQ(CentreOfUniform(127, kIdentity, 2.0f), 254);
  EXPECT_EQ(CentreOfUniform(1, kIdentity, 255.25f), 255);
  EXPECT_EQ(CentreOfUniform(1, kIdentity, 255.75f), 255);
  EXPECT_EQ(CentreOfUniform(1, kIdentity, 254.5f), 255);
  EXPECT_EQ(CentreOfUniform(1, kIdentity, 254.25f), 254);
  EXPECT_EQ(CentreOfUniform(1, kIdentity, 1e30f), 255);
  EXPECT_EQ(CentreOfUniform(1, kIdentity, std::numeric_limits<float>::infinity()), 255);
}

TEST(Convolution, NotANumberGivesZero) {
  EXPECT_EQ(CentreOfUniform(1, kIdentity, std::numeric_limits<float>::quiet_NaN()), 0);
}

// 2^24 + 1 is no float: the sum loses the 1 when it comes second and keeps it when it comes last.
TEST(Convolution, SumsInSinglePrecisionInTheOrderOfTheKernel) {
  constexpr float kLarge = 16777216.0f;
  EXPECT_EQ(CentreOfUniform(1, {kLarge, 1, -kLarge, 0, 0, 0, 0, 0, 0}), 0);
  EXPECT_EQ(CentreOfUniform(1, {kLarge, -kLarge, 1, 0, 0, 0, 0, 0, 0}), 1);
  EXPECT_EQ(CentreOfUniform(1, {0, 0, 0, 0, 0, 0, kLarge, 1, -kLarge}), 0);
  EXPECT_EQ(CentreOfUniform(1, {0, 0, 1, 0, kLarge, 0, -kLarge, 0, 0}), 0);
}

TEST(Convolution, NeighboursAreThoseOfTheInput) {
  // Each pixel takes the value of its left neighbour; a second step would carry it further.
  const Kernel fromTheLeft = {0, 0, 0, 1, 0, 0, 0, 0, 0};
  const Kernel fromTheRight = {0, 0, 0, 0, 0, 1, 0, 0, 0};
  const Bytes image = {0, 0, 0, 0, 1, 2, 3, 4, 0, 0, 0, 0};
  EXPECT_EQ(Convolved(image, 4, 3, fromTheLeft), (Bytes{0, 0, 0, 0, 1, 1, 2, 4, 0, 0, 0, 0}));
  EXPECT_EQ(Convolved(image, 4, 3, fromTheRight), (Bytes{0, 0, 0, 0, 1, 3, 4, 4, 0, 0, 0, 0}));
}

TEST(Convolution, RowsArePaddedToFourBytesAndThePaddingStays) {
  const Kernel fromAbove = {0, 1, 0, 0, 0, 0, 0, 0, 0};
  EXPECT_EQ(Convolved({1, 1, 1, 1, 1, 7, 7, 7,  //
                       2, 2, 2, 2, 2, 7, 7, 7,  //
                       3, 4, 5, 6, 3, 7, 7, 7},
                      5, 3, fromAbove),
            (Bytes{1, 1, 1, 1, 1, 7, 7, 7,  //
                   2, 4, 5, 6, 2, 7, 7, 7,  //
                   3, 4, 5, 6, 3, 7, 7, 7}));
}

TEST(Convolution, ImageWithoutInteriorStays) {
  const Bytes image = {1, 2, 3, 4, 5, 6, 7, 8};
  EXPECT_EQ(Convolved(image, 4, 2, kVerticalGradient), image);
  const Bytes narrow = {1, 2, 0, 0, 3, 4, 0, 0, 5, 6, 0, 0};
  EXPECT_EQ(Convolved(narrow, 2, 3, kVerticalGradient), narrow);
}

TEST(Convolution, LastFourParametersAreIgnored) {
  Bytes image(12, 5);
  EXPECT_TRUE(Convolve3x3(image.data(), 4, 3, kIdentity.data(), 2.0f, 1, -2, 3, 1000));
  EXPECT_EQ(image, (Bytes{5, 5, 5, 5, 5, 10, 10, 5, 5, 5, 5, 5}));
}

TEST(Convolution, MissingMemoryIsFalseAndLeavesTheImage) {
  Bytes image(12, 5);
  const FailNth fault(Fault::kLocalAlloc, 1);
  EXPECT_FALSE(Convolve3x3(image.data(), 4, 3, kIdentity.data(), 2.0f, 0, 0, 0, 0));
  EXPECT_TRUE(fault.HasHappened());
  EXPECT_EQ(image, Bytes(12, 5));
}

TEST(Convolution, MissingMemoryIsFalseForImagesWithoutInterior) {
  Bytes image(8, 5);
  for (const auto& [width, height] : {std::pair(4, 2), std::pair(4, 1), std::pair(1, 2)}) {
    const FailNth fault(Fault::kLocalAlloc, 1);
    EXPECT_FALSE(Convolve3x3(image.data(), width, height, kIdentity.data(), 2.0f, 0, 0, 0, 0));
    EXPECT_TRUE(fault.HasHappened());
  }
}

}  // namespace
}  // namespace quorvex::tests
