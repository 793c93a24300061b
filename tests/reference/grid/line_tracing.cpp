#include "tests/reference/grid.h"

#include <cmath>
#include <cstddef>

#include "base/rounding.h"
#include "grid/cross_probe.h"
#include "tests/reference/crossmark.h"

namespace quorvex::plain {
namespace {

constexpr int kSearchSize = 100;       // pixels around an estimate
constexpr int kColumnSteps = 500;      // pixels from one mark of a column to the next
constexpr double kSamePosition = 3.0;  // pixels in x and in y
constexpr std::size_t kPointLimit = 101;

struct StrokeImage {
  const unsigned char* pixels;
  int width;
  int height;
  const PixelSpanList& rowSpans;
  const PixelSpanList& columnSpans;
};

struct Cross {
  PointF centre;
  LineSegment firstLine;
  LineSegment secondLine;
};

struct Direction {
  float dx;
  float dy;
};

// One walk from the start cross: its probe mode, which stroke of a cross it follows and where along
// it.
struct Walk {
  int mode;
  const LineSegment& (*chooseStroke)(const Cross&);
  Direction (*orient)(Direction);
};

struct TraceAxis {
  Walk firstWalk;
  Walk secondWalk;
  int CalibrationPoint::*label;
};

float Slope(const LineSegment& line) { return std::fabs(line.b); }

// A row follows the stroke with the larger |b|, a column the one with the smaller. The comparisons
// are strict, so that equal strokes are told apart by the walk.
const LineSegment& RowStrokeOrSecond(const Cross& cross) {
  return Slope(cross.firstLine) > Slope(cross.secondLine) ? cross.firstLine : cross.secondLine;
}

const LineSegment& RowStrokeOrFirst(const Cross& cross) {
  return Slope(cross.secondLine) > Slope(cross.firstLine) ? cross.secondLine : cross.firstLine;
}

const LineSegment& ColumnStrokeOrFirst(const Cross& cross) {
  return Slope(cross.secondLine) < Slope(cross.firstLine) ? cross.secondLine : cross.firstLine;
}

const LineSegment& ColumnStrokeOrSecond(const Cross& cross) {
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

bool LocateCross(const StrokeImage& image, int x, int y, Cross& cross) {
  return plain::LocateCrossMark(image.pixels, image.width, image.height, x, y, kSearchSize,
                                cross.firstLine, cross.secondLine, cross.centre) != 0;
}

// One step of a walk: the cross that follows `current`.
bool FindNextCross(const StrokeImage& image, const Walk& walk, const Cross& current, int steps,
                   Cross& found) {
  const LineSegment& stroke = walk.chooseStroke(current);
  const Direction direction = walk.orient({stroke.b, -stroke.a});
  PointF next;
  return plain::ProbeNextCross(image.pixels, image.width, image.height, current.centre, walk.mode,
                               direction.dx, direction.dy, steps, image.rowSpans, image.columnSpans,
                               next) &&
         LocateCross(image, TruncateToInt(next.x), TruncateToInt(next.y), found);
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

void AppendCross(const TraceAxis& axis, const Cross& cross, int label, PointList& output) {
  CalibrationPoint point = {};
  point.*axis.label = label;
  point.x = cross.centre.x;
  point.y = cross.centre.y;
  output.push_back(point);
}

// Follows one walk until a step fails, a mark is met again or the limit is reached. `counted` is
// the size of the list at which the limit's count starts.
void FollowWalk(const StrokeImage& image, const TraceAxis& axis, const Walk& walk, Cross current,
                int steps, int label, std::size_t counted, PointList& output) {
  do {
    Cross found;
    if (!FindNextCross(image, walk, current, steps, found) || IsTaken(output, found.centre)) {
      return;
    }
    AppendCross(axis, found, label, output);
    current = found;
  } while (output.size() - counted < kPointLimit);
}

void TraceLine(const StrokeImage& image, const TraceAxis& axis, int x, int y, int steps, int label,
               PointList& output) {
  Cross start;
  if (!LocateCross(image, x, y, start)) {
    return;
  }
  AppendCross(axis, start, label, output);
  // The first walk's limit counts all that the list holds, the second's only its own points.
  FollowWalk(image, axis, axis.firstWalk, start, steps, label, 0, output);
  FollowWalk(image, axis, axis.secondWalk, start, steps, label, output.size(), output);
}

}  // namespace

bool TraceRow(const unsigned char* image, int width, int height, int x, int y, int rowSteps,
              const PixelSpanList& rowSpans, const PixelSpanList& columnSpans, int label,
              PointList& output) {
  TraceLine({image, width, height, rowSpans, columnSpans}, kRowTrace, x, y, rowSteps, label,
            output);
  return true;
}

bool TraceColumn(const unsigned char* image, int width, int height, int x, int y, int,
                 const PixelSpanList& rowSpans, const PixelSpanList& columnSpans, int label,
                 PointList& output) {
  TraceLine({image, width, height, rowSpans, columnSpans}, kColumnTrace, x, y, kColumnSteps, label,
            output);
  return true;
}

}  // namespace quorvex::plain
