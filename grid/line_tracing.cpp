#include "grid/line_tracing.h"

#include <cmath>
#include <cstddef>

#include "base/gray_image.h"
#include "base/rounding.h"
#include "crossmark/cross_mark_search.h"
#include "grid/cross_probe.h"

namespace quorvex {
namespace {

constexpr int kSearchSize = 100;       // pixels around an estimate
constexpr int kColumnSteps = 500;      // pixels from one mark of a column to the next
constexpr double kSamePosition = 3.0;  // pixels in x and in y
constexpr std::size_t kPointLimit = 101;

struct Direction {
  float dx;
  float dy;
};

// One walk from the start cross: its probe mode, which stroke of a cross it follows and where along
// it.
struct Walk {
  ProbeMode mode;
  const LineSegment& (*chooseStroke)(const CrossMark&);
  Direction (*orient)(Direction);
};

struct TraceAxis {
  Walk firstWalk;
  Walk secondWalk;
  int CalibrationPoint::*label;
};

// What all steps of one row or column share.
struct Trace {
  const TraceAxis& axis;
  CrossMarkSearch& search;
  const PixelSpanList& rowSpans;
  const PixelSpanList& columnSpans;
  int steps;  // pixels from one mark to the next at the most
  int label;
  PointList& output;
};

float Slope(const LineSegment& line) { return std::fabs(line.b); }

// A row follows the stroke with the larger |b|, a column the one with the smaller. The comparisons
// are strict, so that equal strokes are told apart by the walk.
const LineSegment& RowStrokeOrSecond(const CrossMark& cross) {
  return Slope(cross.firstLine) > Slope(cross.secondLine) ? cross.firstLine : cross.secondLine;
}

const LineSegment& RowStrokeOrFirst(const CrossMark& cross) {
  return Slope(cross.secondLine) > Slope(cross.firstLine) ? cross.secondLine : cross.firstLine;
}

const LineSegment& ColumnStrokeOrFirst(const CrossMark& cross) {
  return Slope(cross.secondLine) < Slope(cross.firstLine) ? cross.secondLine : cross.firstLine;
}

const LineSegment& ColumnStrokeOrSecond(const CrossMark& cross) {
  return Slope(cross.firstLine) < Slope(cross.secondLine) ? cross.firstLine : cross.secondLine;
}

Direction Reversed(Direction direction) { return {-direction.dx, -direction.dy}; }

Direction TowardsLargerX(Direction d) { return d.dx < 0.0f ? Reversed(d) : d; }
Direction TowardsSmallerX(Direction d) { return d.dx > 0.0f ? Reversed(d) : d; }
Direction TowardsLargerY(Direction d) { return d.dy < 0.0f ? Reversed(d) : d; }
Direction TowardsSmallerY(Direction d) { return d.dy > 0.0f ? Reversed(d) : d; }

constexpr TraceAxis kRowTrace = {{kProbeRight, RowStrokeOrSecond, TowardsLargerX},
                                 {kProbeLeft, RowStrokeOrFirst, TowardsSmallerX},
                                 &CalibrationPoint::row};
constexpr TraceAxis kColumnTrace = {{kProbeDown, ColumnStrokeOrFirst, TowardsLargerY},
                                    {kProbeUp, ColumnStrokeOrSecond, TowardsSmallerY},
                                    &CalibrationPoint::col};

// One step of a walk: the cross that follows `current`, null when there is none.
const CrossMark* FindNextCross(const Trace& trace, const Walk& walk, const CrossMark& current) {
  const LineSegment& stroke = walk.chooseStroke(current);
  const Direction direction = walk.orient({stroke.b, -stroke.a});
  const GrayView& image = trace.search.Image();
  PointF next;
  if (!ProbeNextCross(image.pixels, image.width, image.height, current.centre, walk.mode,
                      direction.dx, direction.dy, trace.steps, trace.rowSpans, trace.columnSpans,
                      next)) {
    return nullptr;
  }
  return trace.search.Locate(TruncateToInt(next.x), TruncateToInt(next.y), kSearchSize);
}

bool IsSamePosition(const CalibrationPoint& point, PointF position) {
  return static_cast<double>(std::fabs(position.x - point.x)) < kSamePosition &&
         static_cast<double>(std::fabs(position.y - point.y)) < kSamePosition;
}

// Whether the position is one of the last two of the list.
bool IsTaken(const PointList& points, PointF position) {
  const std::size_t size = points.size();
  return (size >= 1 && IsSamePosition(points[size - 1], position)) ||
         (size >= 2 && IsSamePosition(points[size - 2], position));
}

void AppendCross(const Trace& trace, const CrossMark& cross) {
  CalibrationPoint point = {};
  point.*trace.axis.label = trace.label;
  point.x = cross.centre.x;
  point.y = cross.centre.y;
  trace.output.push_back(point);
}

// Follows one walk until a step fails, a mark is met again or the limit is reached. `counted` is
// the size of the list at which the limit's count starts.
void FollowWalk(const Trace& trace, const Walk& walk, const CrossMark& start, std::size_t counted) {
  const CrossMark* current = &start;
  do {
    current = FindNextCross(trace, walk, *current);
    if (current == nullptr || IsTaken(trace.output, current->centre)) {
      return;
    }
    AppendCross(trace, *current);
  } while (trace.output.size() - counted < kPointLimit);
}

void TraceLine(const Trace& trace, int x, int y) {
  const CrossMark* start = trace.search.Locate(x, y, kSearchSize);
  if (start == nullptr) {
    return;
  }
  AppendCross(trace, *start);
  // The first walk's limit counts all that the list holds, the second's only its own points.
  FollowWalk(trace, trace.axis.firstWalk, *start, 0);
  FollowWalk(trace, trace.axis.secondWalk, *start, trace.output.size());
}

}  // namespace

bool TraceRow(const unsigned char* image, int width, int height, int x, int y, int rowSteps,
              const PixelSpanList& rowSpans, const PixelSpanList& columnSpans, int label,
              PointList& output) {
  MarkPictures pictures;
  CrossMarkSearch search({image, width, height}, pictures);
  return TraceRow(search, x, y, rowSteps, rowSpans, columnSpans, label, output);
}

bool TraceRow(CrossMarkSearch& search, int x, int y, int rowSteps, const PixelSpanList& rowSpans,
              const PixelSpanList& columnSpans, int label, PointList& output) {
  TraceLine({kRowTrace, search, rowSpans, columnSpans, rowSteps, label, output}, x, y);
  return true;
}

bool TraceColumn(const unsigned char* image, int width, int height, int x, int y, int,
                 const PixelSpanList& rowSpans, const PixelSpanList& columnSpans, int label,
                 PointList& output) {
  MarkPictures pictures;
  CrossMarkSearch search({image, width, height}, pictures);
  return TraceColumn(search, x, y, rowSpans, columnSpans, label, output);
}

bool TraceColumn(CrossMarkSearch& search, int x, int y, const PixelSpanList& rowSpans,
                 const PixelSpanList& columnSpans, int label, PointList& output) {
  TraceLine({kColumnTrace, search, rowSpans, columnSpans, kColumnSteps, label, output}, x, y);
  return true;
}

}  // namespace quorvex
