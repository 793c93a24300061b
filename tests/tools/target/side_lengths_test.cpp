#include "tools/target/side_lengths.h"

#include <gtest/gtest.h>

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(SideLengths, TwoNumbers) {
  const auto sides = ParseSideLengths("297x420.5");
  ASSERT_TRUE(sides);
  EXPECT_EQ(sides->width, 297);
  EXPECT_EQ(sides->height, 420.5);
}

TEST(SideLengths, NothingElse) {
  for (const char* text : {"", "x", "297", "297x", "x420", "297x420x2", "-297x420", " 297x420",
                           "297x420 ", "0x1p3x4", "1.2.3x4", "infx4", "nanx4", "1e3x4"}) {
    EXPECT_FALSE(ParseSideLengths(text)) << text;
  }
}

}  // namespace
}  // namespace quorvex::tests
