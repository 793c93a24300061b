#include "crossmark/cross_center.h"

#include <memory>

#include "crossmark/cross_strokes.h"
#include "crossmark/line_intersection.h"
#include "crossmark/patch.h"
#include "crossmark/profile_refinement.h"

namespace quorvex {

bool LocateCrossCenter(const unsigned char* greyPatch, const unsigned char* thinnedPatch, float& x,
                       float& y) {
  constexpr int kThinnedStroke = 0;
  const StrokePatch thinned{std::make_shared<const GrayImage>(thinnedPatch, kPatchSize, kPatchSize),
                            kThinnedStroke, kPatchSize, kPatchSize};
  HoughTransform hough(kPatchSize, kPatchSize);
  MarkPictures pictures;
  return LocateCrossCenter(greyPatch, thinned, hough, pictures, x, y);
}

bool LocateCrossCenter(const unsigned char* greyPatch, const StrokePatch& thinned,
                       HoughTransform& hough, MarkPictures& pictures, float& x, float& y) {
  CrossStrokes strokes;
  const StrokeFinding finding = FindCrossStrokes(thinned, hough, strokes);
  ShowStrokes(thinned, finding, pictures);
  if (finding != StrokeFinding::kCross) {
    return false;
  }
  // Both strokes are re-fitted around the first centre.
  RefineLineByProfile(greyPatch, strokes.crossing.x, strokes.crossing.y, strokes.first);
  RefineLineByProfile(greyPatch, strokes.crossing.x, strokes.crossing.y, strokes.second);
  return IntersectLines(strokes.first, strokes.second, x, y);
}

}  // namespace quorvex
