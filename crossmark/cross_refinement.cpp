#include "crossmark/cross_refinement.h"

#include "base/gray_image.h"
#include "base/rounding.h"
#include "crossmark/cross_center.h"
#include "crossmark/image_patch.h"
#include "crossmark/patch.h"
#include "crossmark/patch_binarization.h"
#include "crossmark/thinning.h"
#include "imageio/diagnostic_picture.h"

namespace quorvex {
namespace {

constexpr float kSauvolaWeight = 0.06f;

// Whitens the binary patch where the target's mask is 0; what lies beyond the image stays.
void ApplyMask(const unsigned char* mask, int width, int height, int x0, int y0,
               GrayImage& binary) {
  constexpr unsigned char kWhite = 255;
  for (int r = 0; r < kPatchSize; ++r) {
    for (int c = 0; c < kPatchSize; ++c) {
      if (c < width - x0 && r < height - y0 && mask[PixelOffset(x0 + c, y0 + r, width)] == 0) {
        binary.Data()[PixelOffset(c, r, kPatchSize)] = kWhite;
      }
    }
  }
}

void RefinePoint(const unsigned char* image, int width, int height, const unsigned char* mask,
                 CalibrationPoint& point) {
  const int x0 = PatchOrigin(TruncateToInt(point.x), kPatchReach);
  const int y0 = PatchOrigin(TruncateToInt(point.y), kPatchReach);
  const GrayImage patch = CutPatch(image, width, height, x0, y0, kPatchSize);
  SaveDiagnosticPicture(patch.Data(), kPatchSize, kPatchSize, "./CrossMarkRegion.bmp");

  GrayImage binary(kPatchSize, kPatchSize);
  SauvolaBinarize(patch.Data(), binary.Data(), kSauvolaWeight);
  ApplyMask(mask, width, height, x0, y0, binary);
  SaveDiagnosticPicture(binary.Data(), kPatchSize, kPatchSize, "./Sauvola.bmp");

  ThinImage(binary.Data(), kPatchSize, kPatchSize);
  SaveDiagnosticPicture(binary.Data(), kPatchSize, kPatchSize, "./Thining.bmp");

  float centreX = 0.0f;
  float centreY = 0.0f;
  if (LocateCrossCenter(patch.Data(), binary.Data(), centreX, centreY)) {
    point.x = centreX + static_cast<float>(x0);
    point.y = centreY + static_cast<float>(y0);
  }
}

}  // namespace

bool RefineCrossMarks(const unsigned char* image, int width, int height, const unsigned char* mask,
                      PointList& points) {
  for (CalibrationPoint& point : points) {
    RefinePoint(image, width, height, mask, point);
  }
  return true;
}

}  // namespace quorvex
