#include "imageio/bmp_header.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "imageio/little_endian.h"

namespace quorvex {
namespace {

constexpr int kColorEntrySize = 4;  // bytes: blue, green, red, unused
constexpr int kResolution = 2925;   // pixels per metre, written for every image
constexpr int kMaxBitsPerPixel = 32;

constexpr int kPlanesOffset = 12;
constexpr int kImageSizeOffset = 20;
constexpr int kXResolutionOffset = 24;
constexpr int kYResolutionOffset = 28;

bool FitsInt32(long value) {
  return value >= std::numeric_limits<std::int32_t>::min() &&
         value <= std::numeric_limits<std::int32_t>::max();
}

}  // namespace

int BmpColorTableEntries(int bitsPerPixel) {
  switch (bitsPerPixel) {
    case 1:
      return 2;
    case 4:
      return 16;
    case 8:
      return 256;
    default:
      return 0;
  }
}

// The product of row length and height is bounded by a division: two sizes of 31 bits at 4 bytes a
// pixel do not fit into 64 bits.
bool CanBeStoredAsBmp(long width, long height, int bitsPerPixel) {
  if (!FitsInt32(width) || !FitsInt32(height) || width < 0 || height < 0 || bitsPerPixel < 1 ||
      bitsPerPixel > kMaxBitsPerPixel) {
    return false;
  }
  constexpr std::int64_t kLargestFile = std::numeric_limits<std::uint32_t>::max();
  const std::int64_t rowBytes = (static_cast<std::int64_t>(bitsPerPixel) * width + 31) / 32 * 4;
  if (height > 0 && rowBytes > kLargestFile / height) {
    return false;
  }
  return kBmpFileHeaderSize + LayOutBmp(width, height, bitsPerPixel).blockSize <= kLargestFile;
}

BmpLayout LayOutBmp(std::int64_t width, std::int64_t height, int bitsPerPixel) {
  const std::int64_t bits = bitsPerPixel;
  BmpLayout layout;
  layout.tableSize =
      static_cast<std::int64_t>(kColorEntrySize) * BmpColorTableEntries(bitsPerPixel);
  layout.packedSize = (bits * height * width) / 8;
  const std::int64_t allocatedSize = ((bits * width) / 8 + 3) / 4 * 4 * height;
  layout.imageSize = (bits * width + 31) / 32 * 4 * height;
  layout.blockSize = kBmpInfoHeaderSize + layout.tableSize +
                     std::max({allocatedSize, layout.imageSize, layout.packedSize});
  return layout;
}

void FillBmpFileHeader(unsigned char* header, const BmpLayout& layout) {
  const std::int64_t pixelOffset = kBmpFileHeaderSize + kBmpInfoHeaderSize + layout.tableSize;
  std::memset(header, 0, kBmpFileHeaderSize);
  PutU16(header, kBmpType);
  PutU32(header + 2, static_cast<std::uint32_t>(pixelOffset + layout.imageSize));
  PutU32(header + 10, static_cast<std::uint32_t>(pixelOffset));
}

void FillBmpInfo(unsigned char* info, long width, long height, int bitsPerPixel) {
  const BmpLayout layout = LayOutBmp(width, height, bitsPerPixel);
  PutU32(info, kBmpInfoHeaderSize);
  PutU32(info + kBmpWidthOffset, static_cast<std::uint32_t>(width));
  PutU32(info + kBmpHeightOffset, static_cast<std::uint32_t>(height));
  PutU16(info + kPlanesOffset, 1);
  PutU16(info + kBmpBitCountOffset, static_cast<std::uint16_t>(bitsPerPixel));
  PutU32(info + kImageSizeOffset, static_cast<std::uint32_t>(layout.imageSize));
  PutU32(info + kXResolutionOffset, kResolution);
  PutU32(info + kYResolutionOffset, kResolution);
  unsigned char* table = info + kBmpInfoHeaderSize;
  for (int i = 0; i < BmpColorTableEntries(bitsPerPixel); ++i) {
    std::memset(table, i, 3);
    table += kColorEntrySize;
  }
}

}  // namespace quorvex
