#include "imageio/grey_conversion.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/bytes.h"
#include "tests/support/message_box.h"

namespace quorvex::tests {
namespace {

constexpr unsigned char kBefore = 77;  // what the destination holds before the call

// Only messages that the test itself causes are to be seen by it.
class GreyConversionTest : public ::testing::Test {
 protected:
  void SetUp() override { TakeMessages(); }
};

Bytes Converted(const Bytes& pixels, long width, long height, int bits, std::size_t size) {
  Bytes grey(size, kBefore);
  ConvertRGBToGray(pixels.data(), width, height, bits, grey.data());
  return grey;
}

int GreyOf(int blue, int green, int red) {
  const Bytes pixel = {static_cast<unsigned char>(blue), static_cast<unsigned char>(green),
                       static_cast<unsigned char>(red)};
  return Converted(pixel, 1, 1, 24, 1)[0];
}

TEST_F(GreyConversionTest, WeighsBlueGreenRedAndCuts) {
  EXPECT_EQ(GreyOf(10, 20, 30), 21);  // 11.74 + 1.14 + 8.97 = 21.85
}

TEST_F(GreyConversionTest, PureColoursGiveTheirWeights) {
  EXPECT_EQ(GreyOf(255, 0, 0), 29);   // 29.07
  EXPECT_EQ(GreyOf(0, 255, 0), 149);  // 149.685
  EXPECT_EQ(GreyOf(0, 0, 255), 76);   // 76.245
}

TEST_F(GreyConversionTest, BlackAndWhiteAreExact) {
  EXPECT_EQ(GreyOf(0, 0, 0), 0);
  EXPECT_EQ(GreyOf(255, 255, 255), 255);
}

// The exact sums are 35, 55 and 56. Green, blue, red in this order and in double precision reach
// them; with blue or green last the sums end just below.
TEST_F(GreyConversionTest, SumsGreenThenBlueThenRed) {
  EXPECT_EQ(GreyOf(1, 36, 46), 35);
  EXPECT_EQ(GreyOf(1, 39, 107), 55);
  EXPECT_EQ(GreyOf(1, 84, 22), 56);
}

// The weights are no binary fractions: some greys come out one level darker.
TEST_F(GreyConversionTest, RoundingErrorOfTheSumIsNotCorrected) {
  const std::vector<int> darkened = {23,  46,  57,  59,  92,  114, 118, 127,
                                     184, 205, 223, 228, 236, 241, 249, 254};
  std::vector<int> changed;
  for (int level = 0; level <= 255; ++level) {
    const int grey = GreyOf(level, level, level);
    if (grey != level) {
      EXPECT_EQ(grey, level - 1);
      changed.push_back(level);
    }
  }
  EXPECT_EQ(changed, darkened);
}

TEST_F(GreyConversionTest, FourthByteOf32BitsIsIgnored) {
  const Bytes pixels = {10, 20, 30, 0, 10, 20, 30, 255, 255, 255, 255, 7};
  EXPECT_EQ(Converted(pixels, 3, 1, 32, 3), (Bytes{21, 21, 255}));
}

TEST_F(GreyConversionTest, RowsAreTightAndNotFlipped) {
  // Three pixels a row: 9 bytes in the source, 3 in the destination, no padding in either.
  const Bytes pixels = {10, 20,  30, 0,   0, 0, 255, 255, 255,  // row 0
                        0,  255, 0,  255, 0, 0, 0,   0,   255};
  EXPECT_EQ(Converted(pixels, 3, 2, 24, 7), (Bytes{21, 0, 255, 149, 29, 76, kBefore}));
}

TEST_F(GreyConversionTest, OtherDepthsShowTheMessageAndLeaveTheDestination) {
  const Bytes pixels(64, 200);
  for (const int bits : {8, 0, -24, 1, 16, 23, 25, 31, 33}) {
    EXPECT_EQ(Converted(pixels, 2, 2, bits, 4), Bytes(4, kBefore)) << bits;
    EXPECT_EQ(TakeMessages(), std::vector<std::string>{"图像数据应为8位、24位或32位！"}) << bits;
  }
}

TEST_F(GreyConversionTest, DepthIsCheckedBeforeTheSize) {
  EXPECT_EQ(Converted(Bytes(4, 0), 0, 0, 8, 1), Bytes{kBefore});
  EXPECT_EQ(TakeMessages().size(), 1u);
}

TEST_F(GreyConversionTest, SizesBelowOneConvertNothing) {
  const Bytes pixels(64, 200);
  EXPECT_EQ(Converted(pixels, 2, 0, 24, 4), Bytes(4, kBefore));
  EXPECT_EQ(Converted(pixels, 2, -1, 24, 4), Bytes(4, kBefore));
  EXPECT_EQ(Converted(pixels, 0, 2, 24, 4), Bytes(4, kBefore));
  EXPECT_EQ(Converted(pixels, -2, -2, 24, 4), Bytes(4, kBefore));
  EXPECT_TRUE(TakeMessages().empty());
}

TEST_F(GreyConversionTest, SizesOutside32BitsConvertNothing) {
  if (sizeof(long) > 4) {
    const long beyond = static_cast<long>((1ULL << 32) + 1);
    EXPECT_EQ(Converted(Bytes(3, 200), beyond, 1, 24, 1), Bytes{kBefore});
    EXPECT_EQ(Converted(Bytes(3, 200), 1, beyond, 24, 1), Bytes{kBefore});
  }
}

TEST_F(GreyConversionTest, NullBuffersConvertNothing) {
  const Bytes pixels(3, 200);
  Bytes grey(1, kBefore);
  ConvertRGBToGray(nullptr, 1, 1, 24, grey.data());
  EXPECT_EQ(grey, Bytes{kBefore});
  EXPECT_NO_THROW(ConvertRGBToGray(pixels.data(), 1, 1, 24, nullptr));
  EXPECT_TRUE(TakeMessages().empty());
}

}  // namespace
}  // namespace quorvex::tests
