#include "precise/gray_picture.h"

#include <gtest/gtest.h>

#include <array>

namespace quorvex::tests {
namespace {

using precise::CopyPicture;
using precise::GrayPicture;
using precise::Polarity;

constexpr std::array<unsigned char, 8> kRows = {1, 2, 3, 99, 4, 5, 6, 99};  // 3 x 2, a gap of one

TEST(GrayPicture, CopyLeavesTheGapsOfTheRowsOut) {
  const GrayPicture picture = CopyPicture(kRows.data(), 3, 2, 4, Polarity::kDarkMarks);
  ASSERT_EQ(picture.Width(), 3);
  ASSERT_EQ(picture.Height(), 2);
  EXPECT_EQ(picture.At(2, 0), 3);
  EXPECT_EQ(picture.At(0, 1), 4);
  EXPECT_EQ(picture.At(2, 1), 6);
}

TEST(GrayPicture, NegativeStrideReadsUpwards) {
  const GrayPicture picture = CopyPicture(kRows.data() + 4, 3, 2, -4, Polarity::kDarkMarks);
  EXPECT_EQ(picture.At(0, 0), 4);
  EXPECT_EQ(picture.At(2, 1), 3);
}

TEST(GrayPicture, LightMarksGiveTheNegative) {
  const GrayPicture picture = CopyPicture(kRows.data(), 3, 2, 4, Polarity::kLightMarks);
  EXPECT_EQ(picture.At(0, 0), 254);
  EXPECT_EQ(picture.At(2, 1), 249);
}

TEST(GrayPicture, HoldsItsPixelsAndNoOthers) {
  const GrayPicture picture(3, 2, 7);
  EXPECT_TRUE(picture.Holds(0, 0));
  EXPECT_TRUE(picture.Holds(2, 1));
  EXPECT_FALSE(picture.Holds(3, 1));
  EXPECT_FALSE(picture.Holds(2, 2));
  EXPECT_FALSE(picture.Holds(-1, 0));
  EXPECT_FALSE(picture.Holds(0, -1));
}

}  // namespace
}  // namespace quorvex::tests
