#include "tools/pictures/grey_levels.h"

#include <gtest/gtest.h>

#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(GreyScale, RoundsToTheNearestLevel) {
  const GreyScale scale(65535, std::nullopt);
  EXPECT_EQ(scale(0), 0);
  EXPECT_EQ(scale(128), 0);  // 0.498
  EXPECT_EQ(scale(129), 1);  // 0.502
  EXPECT_EQ(scale(100 * 257), 100);
  EXPECT_EQ(scale(65535), 255);
  const GreyScale bytes(255, std::nullopt);
  for (int level = 0; level <= 255; ++level)
    EXPECT_EQ(bytes(static_cast<std::uint16_t>(level)), level);
}

TEST(GreyScale, IsLinearBetweenTheLevelsAndFlatBeyond) {
  const GreyScale scale(65535, GreyLevels{1000, 1510});
  EXPECT_EQ(scale(0), 0);
  EXPECT_EQ(scale(1000), 0);
  EXPECT_EQ(scale(1001), 1);  // a half goes up
  EXPECT_EQ(scale(1255), 128);
  EXPECT_EQ(scale(1510), 255);
  EXPECT_EQ(scale(65535), 255);
}

TEST(ParseGreyLevels, TakesTwoValuesInTheirOrder) {
  const GreyLevels levels = ParseGreyLevels("0,65535");
  EXPECT_EQ(levels.low, 0);
  EXPECT_EQ(levels.high, 65535);
  EXPECT_EQ(GreyLevelsText(levels), "0,65535");
  for (const char* text : {"", "5", "5,", ",5", "5,5", "6,5", "-1,5", "0,65536", "0, 5", "0,5x"}) {
    EXPECT_THROW(ParseGreyLevels(text), InputError) << text;
  }
}

}  // namespace
}  // namespace quorvex::tests
