#include "crossmark/cross_refinement.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "base/gray_image.h"
#include "base/rounding.h"
#include "crossmark/cross_center.h"
#include "crossmark/hough_lines.h"
#include "crossmark/image_patch.h"
#include "crossmark/patch.h"
#include "crossmark/patch_binarization.h"
#include "crossmark/thinning.h"

namespace quorvex {
namespace {

constexpr float kSauvolaWeight = 0.06f;

constexpr int kThinnedStroke = 0;

// Whitens the binary patch where the target's mask is 0; what lies beyond the image stays.
void ApplyMask(const GrayView& mask, int x0, int y0, GrayImage& binary) {
  constexpr unsigned char kWhite = 255;
  const int rows = std::min(mask.height - y0, kPatchSize);
  const int columns = std::min(mask.width - x0, kPatchSize);
  for (int r = 0; r < rows; ++r) {
    unsigned char* row = binary.Data() + PixelOffset(0, r, kPatchSize);
    for (int c = 0; c < columns; ++c) {
      row[c] = mask.At(x0 + c, y0 + r) == 0 ? kWhite : row[c];
    }
  }
}

// What the refinement of all points shares.
struct Refinement {
  GrayView image;
  GrayView mask;
  MarkPictures& pictures;
  HoughTransform hough;
};

void RefinePoint(Refinement& refinement, CalibrationPoint& point) {
  const int x0 = PatchOrigin(TruncateToInt(point.x), kPatchReach);
  const int y0 = PatchOrigin(TruncateToInt(point.y), kPatchReach);
  const GrayView& image = refinement.image;
  const SharedPatch patch = std::make_shared<const GrayImage>(
      CutPatch(image.pixels, image.width, image.height, x0, y0, kPatchSize));
  refinement.pictures.ShowRegion(patch);

  GrayImage binary = GrayImage::Unset(kPatchSize, kPatchSize);
  SauvolaBinarize(patch->Data(), binary.Data(), kSauvolaWeight);
  ApplyMask(refinement.mask, x0, y0, binary);
  refinement.pictures.ShowBinarized(std::make_shared<const GrayImage>(binary));

  ThinImage(binary.Data(), kPatchSize, kPatchSize);
  const SharedPatch thinned = std::make_shared<const GrayImage>(std::move(binary));
  refinement.pictures.ShowThinned(thinned);

  float centreX = 0.0f;
  float centreY = 0.0f;
  if (LocateCrossCenter(patch->Data(), {thinned, kThinnedStroke, kPatchSize, kPatchSize},
                        refinement.hough, refinement.pictures, centreX, centreY)) {
    point.x = centreX + static_cast<float>(x0);
    point.y = centreY + static_cast<float>(y0);
  }
}

}  // namespace

bool RefineCrossMarks(const unsigned char* image, int width, int height, const unsigned char* mask,
                      PointList& points) {
  MarkPictures pictures;
  return RefineCrossMarks(image, width, height, mask, points, pictures);
}

bool RefineCrossMarks(const unsigned char* image, int width, int height, const unsigned char* mask,
                      PointList& points, MarkPictures& pictures) {
  Refinement refinement{{image, width, height},
                        {mask, width, height},
                        pictures,
                        HoughTransform(kPatchSize, kPatchSize)};
  for (CalibrationPoint& point : points) {
    RefinePoint(refinement, point);
  }
  return true;
}

}  // namespace quorvex
