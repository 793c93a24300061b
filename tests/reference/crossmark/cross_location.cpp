#include "tests/reference/crossmark.h"

#include "base/gray_image.h"
#include "tests/reference/imageio.h"

namespace quorvex::plain {

int LocateCrossMark(const unsigned char* image, int width, int height, int x, int y, int searchSize,
                    LineSegment& firstLine, LineSegment& secondLine, PointF& centre) {
  constexpr int kSearchPatchSize = 200;   // pixels, whatever the search size
  constexpr int kSearchPatchReach = 100;  // pixels
  constexpr int kStroke = 255;
  // Where nothing bright is found, the given position serves.
  int brightX = x;
  int brightY = y;
  plain::FindBrightestWindow(image, width, height, x, y, searchSize, searchSize, brightX, brightY);
  const int x0 = plain::PatchOrigin(brightX, kSearchPatchReach);
  const int y0 = plain::PatchOrigin(brightY, kSearchPatchReach);
  const GrayImage patch = plain::CutPatch(image, width, height, x0, y0, kSearchPatchSize);
  plain::SaveDiagnosticPicture(patch.Data(), kSearchPatchSize, kSearchPatchSize,
                               "./CrossMarkRegion.bmp");

  LineSegmentList lines;
  plain::HoughLines(patch.Data(), kSearchPatchSize, kSearchPatchSize, kStroke, lines);
  if (lines.empty()) {
    return 0;
  }
  plain::SaveLinePicture(lines, width, height, "./Lines.bmp");

  LineSegmentList segments;
  plain::SplitLineSegments(lines, segments);
  if (segments.empty()) {
    return 0;
  }
  plain::SaveLinePicture(segments, width, height, "./LineSegment.bmp");

  float crossX = 0.0f;
  float crossY = 0.0f;
  if (!plain::SelectCrossLines(segments, crossX, crossY, firstLine, secondLine)) {
    return 0;
  }
  centre = {crossX + static_cast<float>(x0), crossY + static_cast<float>(y0)};
  return 1;
}

}  // namespace quorvex::plain
