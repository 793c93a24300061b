#include "crossmark/image_patch.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/patches.h"
#include "tests/support/text_image.h"

namespace quorvex::tests {
namespace {

using Rows = std::vector<std::string>;

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

Rows PatchText(int x0, int y0, int size) {
  const GrayImage image = ImageOf({
      "#o#-",
      "-##o",
      "o-o#",
  });
  return TextOf(CutPatch(image.Data(), 4, 3, x0, y0, size));
}

TEST(PatchOrigin, LiesTheReachBeforeThePosition) {
  EXPECT_EQ(PatchOrigin(200, 80), 120);
  EXPECT_EQ(PatchOrigin(81, 80), 1);
}

TEST(PatchOrigin, IsZeroNearTheLeftOrTopBorderAndBeyond) {
  EXPECT_EQ(PatchOrigin(80, 80), 0);
  EXPECT_EQ(PatchOrigin(79, 80), 0);
  EXPECT_EQ(PatchOrigin(-1, 80), 0);
}

TEST(PatchOrigin, IsDefinedForEveryPosition) {
  EXPECT_EQ(PatchOrigin(kLowest, 100), 0);
  EXPECT_EQ(PatchOrigin(kHighest, 100), kHighest - 100);
}

TEST(CutPatch, CopiesThePixels) { EXPECT_EQ(PatchText(1, 1, 2), (Rows{"##", "-o"})); }

TEST(CutPatch, IsWhiteBeyondTheImage) {
  EXPECT_EQ(PatchText(2, 1, 3), (Rows{"#o.", "o#.", "..."}));
}

TEST(CutPatch, IsWhiteFarOutside) {
  EXPECT_EQ(PatchText(kHighest, kHighest, 2), (Rows{"..", ".."}));
  EXPECT_EQ(PatchText(0, kHighest - 100, 2), (Rows{"..", ".."}));
}

}  // namespace
}  // namespace quorvex::tests
