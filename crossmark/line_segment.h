// The lines and strokes that the cross-mark stages hand to each other.
#ifndef QUORVEX_CROSSMARK_LINE_SEGMENT_H_
#define QUORVEX_CROSSMARK_LINE_SEGMENT_H_

#include <vector>

namespace quorvex {

struct PointF {
  float x;  // column, in the coordinates of the image that was searched
  float y;  // row
};

using PointFList = std::vector<PointF>;

// A line a * x + b * y + c = 0, or one gap-free segment of it, with the pixels that lie on it.
struct LineSegment {
  float a = 0.0f;  // (a, b) is the unit normal
  float b = 0.0f;
  float c = 0.0f;
  float angle = 0.0f;  // radians, the direction as the line fit gives it
  PointF start = {0.0f, 0.0f};
  PointF end = {0.0f, 0.0f};
  PointFList points;
};

using LineSegmentList = std::vector<LineSegment>;

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_LINE_SEGMENT_H_
