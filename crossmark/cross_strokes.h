// The two crossing strokes on a patch: the way from stroke pixels to the crossing, which the search
// on the stroke image and the refinement on the grey image share.
#ifndef QUORVEX_CROSSMARK_CROSS_STROKES_H_
#define QUORVEX_CROSSMARK_CROSS_STROKES_H_

#include "crossmark/line_segment.h"

namespace quorvex {

struct StrokePatch {
  const unsigned char* pixels;  // size * size bytes
  int size;                     // pixels
  int strokeValue;              // grey level of a stroke pixel
  int pictureWidth;             // pixels, of the line pictures that are left behind
  int pictureHeight;
};

struct CrossStrokes {
  LineSegment first;  // the longer one
  LineSegment second;
  PointF crossing = {0.0f, 0.0f};  // patch coordinates
};

// False, the strokes then mean nothing, when the patch has no two strokes that cross. Leaves
// "./Lines.bmp" when there are lines and "./LineSegment.bmp" when there are segments.
bool FindCrossStrokes(const StrokePatch& patch, CrossStrokes& strokes);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_CROSS_STROKES_H_
