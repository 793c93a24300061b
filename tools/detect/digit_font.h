// The digits as pictures of 5 x 7 pixels, for labels in overlays.
#ifndef QUORVEX_TOOLS_DETECT_DIGIT_FONT_H_
#define QUORVEX_TOOLS_DETECT_DIGIT_FONT_H_

namespace quorvex::tools {

constexpr int kGlyphWidth = 5;   // pixels
constexpr int kGlyphHeight = 7;  // pixels

// Whether a pixel of a character is set; `c` is a digit or a minus sign, anything else is blank.
bool IsGlyphPixelSet(char c, int column, int row);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_DIGIT_FONT_H_
