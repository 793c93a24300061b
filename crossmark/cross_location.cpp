#include "crossmark/cross_location.h"

#include "base/gray_image.h"
#include "crossmark/brightest_window.h"
#include "crossmark/cross_strokes.h"
#include "crossmark/image_patch.h"
#include "imageio/diagnostic_picture.h"

namespace quorvex {

int LocateCrossMark(const unsigned char* image, int width, int height, int x, int y, int searchSize,
                    LineSegment& firstLine, LineSegment& secondLine, PointF& centre) {
  constexpr int kSearchPatchSize = 200;   // pixels, whatever the search size
  constexpr int kSearchPatchReach = 100;  // pixels
  constexpr int kStroke = 255;
  // Where nothing bright is found, the given position serves.
  int brightX = x;
  int brightY = y;
  FindBrightestWindow(image, width, height, x, y, searchSize, searchSize, brightX, brightY);
  const int x0 = PatchOrigin(brightX, kSearchPatchReach);
  const int y0 = PatchOrigin(brightY, kSearchPatchReach);
  const GrayImage patch = CutPatch(image, width, height, x0, y0, kSearchPatchSize);
  SaveDiagnosticPicture(patch.Data(), kSearchPatchSize, kSearchPatchSize, "./CrossMarkRegion.bmp");

  CrossStrokes strokes;
  if (!FindCrossStrokes({patch.Data(), kSearchPatchSize, kStroke, width, height}, strokes)) {
    return 0;
  }
  firstLine = strokes.first;
  secondLine = strokes.second;
  centre = {strokes.crossing.x + static_cast<float>(x0),
            strokes.crossing.y + static_cast<float>(y0)};
  return 1;
}

}  // namespace quorvex
