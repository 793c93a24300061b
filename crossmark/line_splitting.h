// Cutting of Hough lines into the gap-free strokes that lie on them.
#ifndef QUORVEX_CROSSMARK_LINE_SPLITTING_H_
#define QUORVEX_CROSSMARK_LINE_SPLITTING_H_

#include "crossmark/line_segment.h"

namespace quorvex {

// Writes the points into `sorted`, which holds as many, by ascending x; equal ones keep their
// order.
void SortPointsByU(PointFList points, PointF* sorted);

// Appends every point (u, v), turned by -angle (radians) and then shifted by (x0, y0), to `output`:
// (cos * u + sin * v + x0, cos * v - sin * u + y0).
void RotatePointsBack(const PointFList& points, float angle, float x0, float y0,
                      PointFList& output);

// Splits every line's points into runs without a gap above 10 pixels and appends the runs longer
// than 30 pixels to `segments`: line by line, along the line. All segments of a line carry the
// coefficients and the angle of the line fitted through all of its points.
void SplitLineSegments(const LineSegmentList& lines, LineSegmentList& segments);

// The same for the points of one line.
void SplitLine(const PointFList& points, LineSegmentList& segments);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_LINE_SPLITTING_H_
