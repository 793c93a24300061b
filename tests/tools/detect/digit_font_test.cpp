#include "tools/detect/digit_font.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(DigitFont, DrawsADigit) {
  std::string seven;
  for (int row = 0; row < kGlyphHeight; ++row) {
    for (int column = 0; column < kGlyphWidth; ++column) {
      seven += IsGlyphPixelSet('7', column, row) ? '#' : '.';
    }
    seven += '\n';
  }
  EXPECT_EQ(seven,
            "#####\n"
            "....#\n"
            "...#.\n"
            "..#..\n"
            ".#...\n"
            ".#...\n"
            ".#...\n");
}

TEST(DigitFont, EveryDigitDiffersFromTheOthers) {
  const std::string known = "0123456789-";
  std::set<std::string> glyphs;
  for (const char c : known) {
    std::string glyph;
    for (int i = 0; i < kGlyphWidth * kGlyphHeight; ++i) {
      glyph += IsGlyphPixelSet(c, i % kGlyphWidth, i / kGlyphWidth) ? '#' : '.';
    }
    glyphs.insert(glyph);
  }
  EXPECT_EQ(glyphs.size(), known.size());
  EXPECT_FALSE(IsGlyphPixelSet('x', 2, 3));
}

}  // namespace
}  // namespace quorvex::tests
