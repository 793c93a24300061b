// What the reader and the writer of BMP files share.
#ifndef QUORVEX_TOOLS_PICTURES_BMP_FORMAT_H_
#define QUORVEX_TOOLS_PICTURES_BMP_FORMAT_H_

#include <cstdint>

namespace quorvex::tools {

constexpr std::uint64_t kBmpFileHeaderBytes = 14;
constexpr std::uint32_t kBmpInfoHeaderBytes = 40;
constexpr std::uint32_t kBmpUncompressed = 0;
constexpr std::uint32_t kBmpPaletteColors = 256;

// Bytes from one row to the next; rows are padded to 4 bytes.
inline std::uint64_t BmpStride(std::int64_t width, int bitsPerPixel) {
  return static_cast<std::uint64_t>((width * bitsPerPixel + 31) / 32 * 4);
}

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_BMP_FORMAT_H_
