#include "tests/reference/crossmark.h"

#include "base/gray_image.h"
#include "base/rounding.h"
#include "crossmark/patch.h"
#include "tests/reference/imageio.h"

namespace quorvex::plain {
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
  const int x0 = plain::PatchOrigin(TruncateToInt(point.x), kPatchReach);
  const int y0 = plain::PatchOrigin(TruncateToInt(point.y), kPatchReach);
  const GrayImage patch = plain::CutPatch(image, width, height, x0, y0, kPatchSize);
  plain::SaveDiagnosticPicture(patch.Data(), kPatchSize, kPatchSize, "./CrossMarkRegion.bmp");

  GrayImage binary(kPatchSize, kPatchSize);
  plain::SauvolaBinarize(patch.Data(), binary.Data(), kSauvolaWeight);
  ApplyMask(mask, width, height, x0, y0, binary);
  plain::SaveDiagnosticPicture(binary.Data(), kPatchSize, kPatchSize, "./Sauvola.bmp");

  plain::ThinImage(binary.Data(), kPatchSize, kPatchSize);
  plain::SaveDiagnosticPicture(binary.Data(), kPatchSize, kPatchSize, "./Thining.bmp");

  float centreX = 0.0f;
  float centreY = 0.0f;
  if (plain::LocateCrossCenter(patch.Data(), binary.Data(), centreX, centreY)) {
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

}  // namespace quorvex::plain
