#include "crossmark/line_picture.h"

#include <algorithm>

#include "base/gray_image.h"
#include "base/rounding.h"
#include "imageio/diagnostic_picture.h"

namespace quorvex {
namespace {

// How many of the picture's first rows hold all of the points.
int RowsWithPoints(const LineSegmentList& lines, int height) {
  int last = -1;
  for (const LineSegment& line : lines) {
    for (const PointF& point : line.points) {
      last = std::max(last, RoundHalfUp(point.y));
    }
  }
  return std::min(last, height - 1) + 1;
}

}  // namespace

void SaveLinePicture(const LineSegmentList& lines, int width, int height, const char* name) {
  constexpr unsigned char kWhite = 255;
  GrayImage top(width, RowsWithPoints(lines, height));
  for (const LineSegment& line : lines) {
    for (const PointF& point : line.points) {
      const int column = RoundHalfUp(point.x);
      const int row = RoundHalfUp(point.y);
      if (IsInside(column, row, width, top.Height())) {
        top.Data()[PixelOffset(column, row, width)] = kWhite;
      }
    }
  }
  SaveTopOfDiagnosticPicture(top.Data(), top.Height(), width, height, name);
}

}  // namespace quorvex
