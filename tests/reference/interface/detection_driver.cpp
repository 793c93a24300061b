#include "tests/reference/interface.h"

#include <limits>

#include "base/gray_image.h"
#include "platform/mfc.h"
#include "preprocess/outline_drawing.h"
#include "preprocess/outline_filter.h"
#include "tests/reference/imageio.h"
#include "tests/reference/preprocess.h"

namespace quorvex::plain {
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
  plain::SaveDiagnosticPicture(image.Data(), image.Width(), image.Height(), name);
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
  plain::SaveDiagnosticPicture(image, width, height, "./ProImage.bmp");
  if (width % kSizeUnit != 0 || height % kSizeUnit != 0) {
    AfxMessageBox(_T("图像宽度和高度必须是4的整数倍！"), MB_OK);
    return false;
  }

  // The results of the image stages are not asked: a stage that cannot do its work leaves its image
  // as it was, and the detection goes on with that.
  GrayImage working(image, width, height);
  plain::BinarizeImage(working.Data(), width, height, kTargetLevel);
  Save(working, "./Binarization.bmp");
  plain::RankFilter3x3(working.Data(), width, height, 0);
  plain::BinarizeImage(working.Data(), width, height, kFilteredLevel);
  plain::DilateImage(working.Data(), width, height, 0, kDilationElement);
  Save(working, "./Dilation.bmp");

  OutlineList outline;
  plain::TraceTargetOutline(working.Data(), width, height, outline);
  const PixelPosition centre = plain::ImageCentre(width, height);
  FilterOutlinePoints(outline, centre.x, centre.y);
  working.Fill(0);
  DrawOutline(working.Data(), width, height, outline);
  Save(working, "./Contour.bmp");
  plain::MarkOutsideRegion(working.Data(), width, height);
  Save(working, "./SRegion.bmp");

  const GrayImage mask = plain::MakeTargetMask(working);
  Save(mask, "./Mask.bmp");
  GrayImage edges = plain::MakeTargetRegion(image, working);
  Save(edges, "./Region.bmp");
  const PixelSpanList rowSpans = plain::ComputeRowSpans(mask.Data(), width, height);
  const PixelSpanList columnSpans = plain::ComputeColumnSpans(mask.Data(), width, height);

  plain::SobelEdges(edges.Data(), width, height);
  plain::BinarizeImage(edges.Data(), width, height, kEdgeLevel);
  Save(edges, "./Sobel.bmp");
  plain::EraseOutlineEdges(edges.Data(), width, height, outline);
  plain::RemoveLargeComponents(edges.Data(), width, height);
  plain::BinarizeImage(edges.Data(), width, height, kComponentLevel);
  Save(edges, "./Eliminate.bmp");

  return plain::AssembleResult(image, edges, mask, rowSpans, columnSpans,
                               {rowSpan, columnSpan, rowSteps}, points);
}

}  // namespace quorvex::plain
