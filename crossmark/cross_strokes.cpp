#include "crossmark/cross_strokes.h"

#include "crossmark/cross_lines.h"
#include "crossmark/hough_lines.h"
#include "crossmark/line_picture.h"
#include "crossmark/line_splitting.h"

namespace quorvex {

bool FindCrossStrokes(const StrokePatch& patch, CrossStrokes& strokes) {
  LineSegmentList lines;
  HoughLines(patch.pixels, patch.size, patch.size, patch.strokeValue, lines);
  if (lines.empty()) {
    return false;
  }
  SaveLinePicture(lines, patch.pictureWidth, patch.pictureHeight, "./Lines.bmp");

  LineSegmentList segments;
  SplitLineSegments(lines, segments);
  if (segments.empty()) {
    return false;
  }
  SaveLinePicture(segments, patch.pictureWidth, patch.pictureHeight, "./LineSegment.bmp");

  return SelectCrossLines(segments, strokes.crossing.x, strokes.crossing.y, strokes.first,
                          strokes.second);
}

}  // namespace quorvex
