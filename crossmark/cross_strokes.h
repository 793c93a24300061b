// The two crossing strokes on a patch: the way from stroke pixels to the crossing, which the search
// on the stroke image and the refinement on the grey image share.
#ifndef QUORVEX_CROSSMARK_CROSS_STROKES_H_
#define QUORVEX_CROSSMARK_CROSS_STROKES_H_

#include "crossmark/hough_lines.h"
#include "crossmark/line_segment.h"
#include "crossmark/mark_pictures.h"

namespace quorvex {

struct CrossStrokes {
  LineSegment first;  // the longer one
  LineSegment second;
  PointF crossing = {0.0f, 0.0f};  // patch coordinates
};

// How far the way from stroke pixels to a crossing led.
enum class StrokeFinding {
  kNothing,
  kLines,     // lines, but no segment of one is long enough
  kSegments,  // segments, but no two of them cross
  kCross
};

// Sets the strokes of a patch; they mean nothing unless the result is kCross. The transform is one
// for images of the patch's size.
StrokeFinding FindCrossStrokes(const StrokePatch& patch, HoughTransform& hough,
                               CrossStrokes& strokes);

// Shows what was found on the patch: its lines and its segments, as far as there are any.
void ShowStrokes(const StrokePatch& patch, StrokeFinding finding, MarkPictures& pictures);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_CROSS_STROKES_H_
