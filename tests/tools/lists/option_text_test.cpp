#include "tools/lists/option_text.h"

#include <gtest/gtest.h>

#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(OptionText, ReadsPositions) {
  for (const char* text : {"-3.5,7", "-3.5,7.0", "-35e-1,7"}) {
    EXPECT_EQ(ParsePosition(text).x, -3.5f) << text;
    EXPECT_EQ(ParsePosition(text).y, 7.0f) << text;
  }
}

TEST(OptionText, RefusesWhatIsNoPosition) {
  for (const char* text : {"", ",", "1", "1,", ",1", "1,2,3", "1;2", "1, 2", " 1,2", "1,2 ", "a,b",
                           "nan,1", "1,inf", "1e39,1", "1,0x10", "+1,2"}) {
    EXPECT_THROW(ParsePosition(text), InputError) << text;
  }
}

TEST(OptionText, ReadsAndWritesGridSizes) {
  EXPECT_EQ(ParseGridSize("9x7").rows, 9);
  EXPECT_EQ(ParseGridSize("9x7").columns, 7);
  EXPECT_EQ(GridSizeText(ParseGridSize("1x32768")), "1x32768");
  for (const char* text : {"", "x", "9", "9x", "x7", "9X7", "9x7x5", "9.5x7", "0x7", "9x0", "-9x7",
                           "9x32769", "9 x 7"}) {
    EXPECT_THROW(ParseGridSize(text), InputError) << text;
  }
}

TEST(OptionText, ReadsPlacesInTheGrid) {
  EXPECT_EQ(ParseGridPosition("2,3").row, 2);
  EXPECT_EQ(ParseGridPosition("2,3").column, 3);
  EXPECT_EQ(ParseGridPosition("-1,2147483647").row, -1);
  EXPECT_EQ(ParseGridPosition("-1,2147483647").column, 2147483647);
}

// Among them what a scanner that stops early, skips blanks or wraps around would take.
TEST(OptionText, RefusesWhatIsNoPlaceInTheGrid) {
  for (const char* text : {"",
                           ",",
                           "1",
                           "1,",
                           ",1",
                           "1,2,3",
                           "1;2",
                           "1, 2",
                           " 0,3",
                           "0,+3",
                           " 0,+3",
                           "+0,3",
                           "1,2 ",
                           "1,2x",
                           "1.5,2",
                           "1e1,2",
                           "0x1,2",
                           "a,b",
                           "4294967296,0",
                           "0,4294967296",
                           "2147483648,0",
                           "0,-2147483649",
                           "18446744073709551616,0",
                           "1,2\n"}) {
    EXPECT_THROW(ParseGridPosition(text), InputError) << text;
  }
}

}  // namespace
}  // namespace quorvex::tests
