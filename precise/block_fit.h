// Measures where a stroke lies across its expected line, piece by piece.
//
// An arm is cut into blocks along it. Each block is one linear least squares in four unknowns:
// background, its slope across, the stroke's darkness, and darkness times shift. The other stroke
// of the mark enters with its known coverage, so that blocks may lie close to the crossing.
#ifndef QUORVEX_PRECISE_BLOCK_FIT_H_
#define QUORVEX_PRECISE_BLOCK_FIT_H_

#include <vector>

#include "precise/gray_picture.h"
#include "precise/stroke_pixels.h"
#include "precise/stroke_profile.h"

namespace quorvex::precise {

struct Stroke {
  StrokeLine line;
  StrokeProfile profile;
};

// The piece of an arm that is measured: u from `from` to `to` (negative for an arm against the
// stroke's direction), in `count` blocks.
struct ArmSpan {
  double from = 0.0;  // px, less than `to`
  double to = 0.0;    // px
  int count = 0;
};

struct Block {
  double along = 0.0;        // px, mean u of its pixels
  double shift = 0.0;        // px to the side of the normal, from the expected line
  double information = 0.0;  // 1 / px^2 for noise of one grey level; 0: nothing was measured
  double darkness = 0.0;     // grey levels, of the full stroke
  double contrast = 0.0;     // grey levels, of the middle against the weaker of both sides
  double misfit = 0.0;       // grey levels^2, mean square of the residuals
  int arm = 0;               // 0 along the direction, 1 against it
};

// Distance across within which pixels are used, px.
double BlockReach(const StrokeProfile& profile);

// Appends the blocks of one arm. Blocks with too few pixels in the picture are left out.
void FitBlocks(const GrayPicture& picture, const Stroke& stroke, const Stroke& other,
               const ArmSpan& span, int arm, std::vector<Block>& blocks);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_BLOCK_FIT_H_
