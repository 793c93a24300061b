#include "crossmark/cross_center.h"

#include "crossmark/cross_strokes.h"
#include "crossmark/line_intersection.h"
#include "crossmark/patch.h"
#include "crossmark/profile_refinement.h"

namespace quorvex {

bool LocateCrossCenter(const unsigned char* greyPatch, const unsigned char* thinnedPatch, float& x,
                       float& y) {
  constexpr int kThinnedStroke = 0;
  CrossStrokes strokes;
  if (!FindCrossStrokes({thinnedPatch, kPatchSize, kThinnedStroke, kPatchSize, kPatchSize},
                        strokes)) {
    return false;
  }
  // Both strokes are re-fitted around the first centre.
  RefineLineByProfile(greyPatch, strokes.crossing.x, strokes.crossing.y, strokes.first);
  RefineLineByProfile(greyPatch, strokes.crossing.x, strokes.crossing.y, strokes.second);
  return IntersectLines(strokes.first, strokes.second, x, y);
}

}  // namespace quorvex
