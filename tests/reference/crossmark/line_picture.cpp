#include "tests/reference/crossmark.h"

#include "base/gray_image.h"
#include "base/rounding.h"
#include "tests/reference/imageio.h"

namespace quorvex::plain {

void SaveLinePicture(const LineSegmentList& lines, int width, int height, const char* name) {
  constexpr unsigned char kWhite = 255;
  GrayImage picture(width, height);
  for (const LineSegment& line : lines) {
    for (const PointF& point : line.points) {
      const int column = RoundHalfUp(point.x);
      const int row = RoundHalfUp(point.y);
      if (IsInside(column, row, width, height)) {
        picture.Data()[PixelOffset(column, row, width)] = kWhite;
      }
    }
  }
  plain::SaveDiagnosticPicture(picture.Data(), width, height, name);
}

}  // namespace quorvex::plain
