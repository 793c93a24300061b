#include "crossmark/cross_center.h"

#include "crossmark/cross_lines.h"
#include "crossmark/hough_lines.h"
#include "crossmark/line_intersection.h"
#include "crossmark/line_picture.h"
#include "crossmark/line_splitting.h"
#include "crossmark/patch.h"
#include "crossmark/profile_refinement.h"

namespace quorvex {

bool LocateCrossCenter(const unsigned char* greyPatch, const unsigned char* thinnedPatch, float& x,
                       float& y) {
  constexpr int kThinnedStroke = 0;
  LineSegmentList lines;
  HoughLines(thinnedPatch, kPatchSize, kPatchSize, kThinnedStroke, lines);
  if (lines.empty()) {
    return false;
  }
  SaveLinePicture(lines, kPatchSize, kPatchSize, "./Lines.bmp");

  LineSegmentList segments;
  SplitLineSegments(lines, segments);
  if (segments.empty()) {
    return false;
  }
  SaveLinePicture(segments, kPatchSize, kPatchSize, "./LineSegment.bmp");

  LineSegment firstLine;
  LineSegment secondLine;
  if (!SelectCrossLines(segments, x, y, firstLine, secondLine)) {
    return false;
  }
  // Both strokes are re-fitted around the first centre.
  RefineLineByProfile(greyPatch, x, y, firstLine);
  RefineLineByProfile(greyPatch, x, y, secondLine);
  return IntersectLines(firstLine, secondLine, x, y);
}

}  // namespace quorvex
