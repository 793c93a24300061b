#include "bindings/shared/bottom_up.h"

#include <algorithm>

namespace quorvex::bindings {

std::vector<unsigned char> BottomUpPixels(const PixelRows& image, BufferSize size) {
  const std::size_t rowBytes = static_cast<std::size_t>(size.width);
  const std::size_t given = static_cast<std::size_t>(image.width);
  std::vector<unsigned char> buffer;
  buffer.reserve(rowBytes * static_cast<std::size_t>(size.height));
  for (int y = size.height - 1; y >= 0; --y) {
    const unsigned char* const row = image.pixels + image.rowStride * std::min(y, image.height - 1);
    if (image.columnStride == 1) {
      buffer.insert(buffer.end(), row, row + given);
    } else {
      for (int x = 0; x < image.width; ++x) {
        buffer.push_back(row[image.columnStride * x]);
      }
    }
    const unsigned char last = buffer.back();
    buffer.insert(buffer.end(), rowBytes - given, last);
  }
  return buffer;
}

}  // namespace quorvex::bindings
