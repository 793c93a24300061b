#include "tools/pictures/bmp_writer.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <limits>

#include "tools/errors.h"
#include "tools/pictures/bmp_format.h"

namespace quorvex::tools {
namespace {

constexpr std::uint32_t kPixelsPerMeter = 2835;  // 72 dots per inch

void Append(std::vector<std::uint8_t>& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i) {
    bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
  }
}

void AppendHeaders(std::vector<std::uint8_t>& bytes, const Picture& picture,
                   std::uint32_t fileBytes, std::uint32_t pixelOffset) {
  bytes.push_back('B');
  bytes.push_back('M');
  Append(bytes, fileBytes, 4);
  Append(bytes, 0, 4);
  Append(bytes, pixelOffset, 4);
  Append(bytes, kBmpInfoHeaderBytes, 4);
  Append(bytes, static_cast<std::uint32_t>(picture.width), 4);
  Append(bytes, static_cast<std::uint32_t>(picture.height), 4);
  Append(bytes, 1, 2);  // planes
  Append(bytes, 8, 2);  // bits per pixel
  Append(bytes, kBmpUncompressed, 4);
  Append(bytes, fileBytes - pixelOffset, 4);
  Append(bytes, kPixelsPerMeter, 4);
  Append(bytes, kPixelsPerMeter, 4);
  Append(bytes, kBmpPaletteColors, 4);
  Append(bytes, 0, 4);  // all colours are important
  for (std::uint32_t grey = 0; grey < kBmpPaletteColors; ++grey) {
    Append(bytes, grey | grey << 8 | grey << 16, 4);
  }
}

}  // namespace

std::vector<std::uint8_t> EncodeBmp(const Picture& picture, const std::string& name) {
  const std::uint64_t pixelOffset =
      kBmpFileHeaderBytes + kBmpInfoHeaderBytes + std::uint64_t{kBmpPaletteColors} * 4;
  const std::uint64_t stride = BmpStride(picture.width, 8);
  const std::uint64_t fileBytes = pixelOffset + stride * static_cast<std::uint64_t>(picture.height);
  if (fileBytes > std::numeric_limits<std::uint32_t>::max()) {
    throw InputError(fmt::format("cannot write {}: {} x {} pixels are too many for a BMP file",
                                 name, picture.width, picture.height));
  }
  std::vector<std::uint8_t> bytes;
  bytes.reserve(fileBytes);
  AppendHeaders(bytes, picture, static_cast<std::uint32_t>(fileBytes),
                static_cast<std::uint32_t>(pixelOffset));
  bytes.resize(fileBytes);
  const std::size_t width = static_cast<std::size_t>(picture.width);
  const std::size_t rows = static_cast<std::size_t>(picture.height);
  for (std::size_t y = 0; y < rows; ++y) {
    std::copy_n(picture.pixels.data() + width * y, width,
                bytes.data() + pixelOffset + stride * (rows - 1 - y));
  }
  return bytes;
}

}  // namespace quorvex::tools
