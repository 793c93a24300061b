// Boards of cross marks, drawn with all that a random case can get wrong: marks out of place or
// missing, slants, noise.
#ifndef QUORVEX_TESTS_SUPPORT_RANDOM_BOARD_H_
#define QUORVEX_TESTS_SUPPORT_RANDOM_BOARD_H_

#include "base/pixel_span.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {

struct BoardStyle {
  unsigned char background;
  unsigned char stroke;
  int pitch;        // pixels from one mark to the next
  bool isComplete;  // every mark is drawn, and in its place
};

// Draws marks at the pitch around (centreX, centreY), as far as the image goes.
void DrawBoard(CaseRandom& random, const BoardStyle& style, int centreX, int centreY,
               TestImage& image);

// A stroke image: marks of 255 on 0.
TestImage RandomStrokeBoard(CaseRandom& random, ImageSize size);

// Spans of a target: mostly the whole lines, else cut, empty or reaching beyond the image.
PixelSpanList RandomSpans(CaseRandom& random, int count, int length);

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_RANDOM_BOARD_H_
