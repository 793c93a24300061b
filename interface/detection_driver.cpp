// The checks of the input; the image half and the grid half of the pipeline follow.
#include "interface/detection_driver.h"

#include <limits>

#include "imageio/diagnostic_picture.h"
#include "interface/result_assembly.h"
#include "interface/stroke_image.h"
#include "platform/mfc.h"

namespace quorvex {
namespace {

constexpr long kSmallestSize = 4;  // pixels
constexpr int kSizeUnit = 4;       // pixels, what width and height must be multiples of
constexpr int kBitsPerPixel = 8;

bool IsAcceptableSize(long size) {
  return size >= kSmallestSize && size <= std::numeric_limits<int>::max();
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

  return AssembleResult(image, MakeStrokeImage(image, width, height),
                        {rowSpan, columnSpan, rowSteps}, points);
}

}  // namespace quorvex
