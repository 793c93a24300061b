#include "tools/detect/digit_font.h"

namespace quorvex::tools {
namespace {

// clang-format off
constexpr const char* kGlyphs[] = {
    " ### " "#   #" "#   #" "#   #" "#   #" "#   #" " ### ",
    "  #  " " ##  " "  #  " "  #  " "  #  " "  #  " " ### ",
    " ### " "#   #" "    #" "  ## " " #   " "#    " "#####",
    " ### " "#   #" "    #" "  ## " "    #" "#   #" " ### ",
    "   # " "  ## " " # # " "#  # " "#####" "   # " "   # ",
    "#####" "#    " "#### " "    #" "    #" "#   #" " ### ",
    " ### " "#    " "#    " "#### " "#   #" "#   #" " ### ",
    "#####" "    #" "   # " "  #  " " #   " " #   " " #   ",
    " ### " "#   #" "#   #" " ### " "#   #" "#   #" " ### ",
    " ### " "#   #" "#   #" " ####" "    #" "    #" " ### ",
};
constexpr const char* kMinus =
    "     " "     " "     " "#####" "     " "     " "     ";
// clang-format on

}  // namespace

bool IsGlyphPixelSet(char c, int column, int row) {
  const bool known = c == '-' || (c >= '0' && c <= '9');
  if (!known || column < 0 || column >= kGlyphWidth || row < 0 || row >= kGlyphHeight) {
    return false;
  }
  const char* glyph = c == '-' ? kMinus : kGlyphs[c - '0'];
  return glyph[row * kGlyphWidth + column] == '#';
}

}  // namespace quorvex::tools
