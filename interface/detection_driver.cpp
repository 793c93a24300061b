// The checks of the input and the image half of the pipeline. The grid half follows in the result
// assembly.
#include "interface/detection_driver.h"

#include <limits>

#include "base/gray_image.h"
#include "imageio/diagnostic_picture.h"
#include "interface/result_assembly.h"
#include "platform/mfc.h"
#include "preprocess/binarize.h"
#include "preprocess/component_removal.h"
#include "preprocess/dilation.h"
#include "preprocess/mask_spans.h"
#include "preprocess/outline_drawing.h"
#include "preprocess/outline_erasure.h"
#include "preprocess/outline_filter.h"
#include "preprocess/outline_tracing.h"
#include "preprocess/outside_region.h"
#include "preprocess/rank_filter.h"
#include "preprocess/sobel_edges.h"
#include "preprocess/target_mask.h"

namespace quorvex {
namespace {

constexpr long kSmallestSize = 4;  // pixels
constexpr int kSizeUnit = 4;       // pixels, what width and height must be multiples of
constexpr int kBitsPerPixel = 8;

constexpr unsigned char kTargetLevel = 80;     // grey level; below is background or stroke
constexpr unsigned char kFilteredLevel = 50;   // behind the rank filter
constexpr unsigned char kEdgeLevel = 20;       // gradient that counts as an edge
constexpr unsigned char kComponentLevel = 40;  // below the mark of components that stay
constexpr int kDilationElement[9] = {1, 1, 1, 1, 1, 1, 1, 1, 1};

bool IsAcceptableSize(long size) {
  return size >= kSmallestSize && size <= std::numeric_limits<int>::max();
}

void Save(const GrayImage& image, const char* name) {
  SaveDiagnosticPicture(image.Data(), image.Width(), image.Height(), name);
}

}  // namespace

bool SingleCamDetectCalibrationPoint(const unsigned char* image, long imageWidth, long imageHeight,
                                     int bitsPerPixel, int rowSpan, int columnSpan, float, float,
                                     int rowSteps, PointList& points) {
  if (image == nullptr || !IsAcceptableSize(imageWidth) || !IsAcceptableSize(imageHeight) ||
      bitsPerPixel != kBitsPerPixel) {
    return false;
  }
  const int width = static_cast<int>(imageWidth);
  const int height = static_cast<int>(imageHeight);
  SaveDiagnosticPicture(image, width, height, "./ProImage.bmp");
  if (width % kSizeUnit != 0 || height % kSizeUnit != 0) {
    AfxMessageBox(_T("图像宽度和高度必须是4的整数倍！"), MB_OK);
    return false;
  }

  // The results of the image stages are not asked: a stage that cannot do its work leaves its image
  // as it was, and the detection goes on with that.
  GrayImage working(image, width, height);
  BinarizeImage(working.Data(), width, height, kTargetLevel);
  Save(working, "./Binarization.bmp");
  RankFilter3x3(working.Data(), width, height, 0);
  BinarizeImage(working.Data(), width, height, kFilteredLevel);
  DilateImage(working.Data(), width, height, 0, kDilationElement);
  Save(working, "./Dilation.bmp");

  OutlineList outline;
  TraceTargetOutline(working.Data(), width, height, outline);
  const PixelPosition centre = ImageCentre(width, height);
  FilterOutlinePoints(outline, centre.x, centre.y);
  working.Fill(0);
  DrawOutline(working.Data(), width, height, outline);
  Save(working, "./Contour.bmp");
  MarkOutsideRegion(working.Data(), width, height);
  Save(working, "./SRegion.bmp");

  const GrayImage mask = MakeTargetMask(working);
  Save(mask, "./Mask.bmp");
  GrayImage edges = MakeTargetRegion(image, working);
  Save(edges, "./Region.bmp");
  const PixelSpanList rowSpans = ComputeRowSpans(mask.Data(), width, height);
  const PixelSpanList columnSpans = ComputeColumnSpans(mask.Data(), width, height);

  SobelEdges(edges.Data(), width, height);
  BinarizeImage(edges.Data(), width, height, kEdgeLevel);
  Save(edges, "./Sobel.bmp");
  EraseOutlineEdges(edges.Data(), width, height, outline);
  RemoveLargeComponents(edges.Data(), width, height);
  BinarizeImage(edges.Data(), width, height, kComponentLevel);
  Save(edges, "./Eliminate.bmp");

  return AssembleResult(image, edges, mask, rowSpans, columnSpans, {rowSpan, columnSpan, rowSteps},
                        points);
}

}  // namespace quorvex
