#include "tests/reference/crossmark.h"

#include "crossmark/patch.h"

namespace quorvex::plain {

bool LocateCrossCenter(const unsigned char* greyPatch, const unsigned char* thinnedPatch, float& x,
                       float& y) {
  constexpr int kThinnedStroke = 0;
  LineSegmentList lines;
  plain::HoughLines(thinnedPatch, kPatchSize, kPatchSize, kThinnedStroke, lines);
  if (lines.empty()) {
    return false;
  }
  plain::SaveLinePicture(lines, kPatchSize, kPatchSize, "./Lines.bmp");

  LineSegmentList segments;
  plain::SplitLineSegments(lines, segments);
  if (segments.empty()) {
    return false;
  }
  plain::SaveLinePicture(segments, kPatchSize, kPatchSize, "./LineSegment.bmp");

  LineSegment firstLine;
  LineSegment secondLine;
  if (!plain::SelectCrossLines(segments, x, y, firstLine, secondLine)) {
    return false;
  }
  // Both strokes are re-fitted around the first centre.
  plain::RefineLineByProfile(greyPatch, x, y, firstLine);
  plain::RefineLineByProfile(greyPatch, x, y, secondLine);
  return plain::IntersectLines(firstLine, secondLine, x, y);
}

}  // namespace quorvex::plain
