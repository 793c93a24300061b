#include "imageio/grey_conversion.h"

#include <cstddef>
#include <limits>

#include "platform/mfc.h"

namespace quorvex {
namespace {

constexpr double kGreenWeight = 0.587;
constexpr double kBlueWeight = 0.114;
constexpr double kRedWeight = 0.299;
constexpr long kLargestSize = std::numeric_limits<int>::max();  // pixels

}  // namespace

void ConvertRGBToGray(const unsigned char* pixels, long width, long height, int bitsPerPixel,
                      unsigned char* grey) {
  if (bitsPerPixel != 24 && bitsPerPixel != 32) {
    // The text names 8 bits although they are refused; it stays as it is known.
    AfxMessageBox(_T("图像数据应为8位、24位或32位！"), MB_OK);
    return;
  }
  if (pixels == nullptr || grey == nullptr || width < 1 || height < 1 || width > kLargestSize ||
      height > kLargestSize) {
    return;
  }
  const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  const std::size_t pixelSize = static_cast<std::size_t>(bitsPerPixel / 8);
  for (std::size_t i = 0; i < count; ++i) {
    const unsigned char* pixel = pixels + i * pixelSize;
    const double level = pixel[1] * kGreenWeight + pixel[0] * kBlueWeight + pixel[2] * kRedWeight;
    grey[i] = static_cast<unsigned char>(level);
  }
}

}  // namespace quorvex
