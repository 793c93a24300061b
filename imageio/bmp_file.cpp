#include "imageio/bmp_file.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

#include "imageio/global_block.h"
#include "imageio/little_endian.h"
#include "platform/mfc.h"

namespace quorvex {
namespace {

constexpr int kFileHeaderSize = 14;     // bytes
constexpr int kInfoHeaderSize = 40;     // bytes
constexpr int kV4HeaderSize = 108;      // bytes
constexpr int kV5HeaderSize = 124;      // bytes
constexpr int kColorEntrySize = 4;      // bytes: blue, green, red, unused
constexpr int kCoreColorEntrySize = 3;  // bytes: blue, green, red
constexpr int kResolution = 2925;       // pixels per metre, written for every image
constexpr int kBmpType = 0x4D42;        // "BM"
constexpr int kMaxBitsPerPixel = 32;

// Offsets of header fields from the start of the information header.
constexpr int kWidthOffset = 4;
constexpr int kHeightOffset = 8;
constexpr int kPlanesOffset = 12;
constexpr int kBitCountOffset = 14;
constexpr int kImageSizeOffset = 20;
constexpr int kXResolutionOffset = 24;
constexpr int kYResolutionOffset = 28;
constexpr int kColorsUsedOffset = 32;
constexpr int kCoreHeightOffset = 6;
constexpr int kCoreBitCountOffset = 10;

bool FitsInt32(long value) {
  return value >= std::numeric_limits<std::int32_t>::min() &&
         value <= std::numeric_limits<std::int32_t>::max();
}

// Entries of the colour table that belongs to a depth; 0 for true colour.
int ColorTableEntries(int bitsPerPixel) {
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

// Sizes of the bitmap in memory, in bytes. The two formulas for the pixel rows differ where a row
// of pixels ends within a byte; the block is large enough for both.
struct DibLayout {
  std::int64_t tableSize;
  std::int64_t packedSize;  // the caller's pixels, rows without padding
  std::int64_t imageSize;   // the rows as written to the file
  std::int64_t blockSize;   // header, table and rows as allocated
};

DibLayout LayOut(std::int64_t width, std::int64_t height, std::int64_t bits) {
  DibLayout layout;
  layout.tableSize =
      static_cast<std::int64_t>(kColorEntrySize) * ColorTableEntries(static_cast<int>(bits));
  layout.packedSize = (bits * height * width) / 8;
  const std::int64_t allocatedSize = ((bits * width) / 8 + 3) / 4 * 4 * height;
  layout.imageSize = (bits * width + 31) / 32 * 4 * height;
  layout.blockSize = kInfoHeaderSize + layout.tableSize +
                     std::max({allocatedSize, layout.imageSize, layout.packedSize});
  return layout;
}

// The product of row length and height is bounded by a division: two sizes of 31 bits at 4 bytes a
// pixel do not fit into 64 bits.
bool CanBeStored(long width, long height, int bitsPerPixel) {
  if (!FitsInt32(width) || !FitsInt32(height) || width < 0 || height < 0 || bitsPerPixel < 1 ||
      bitsPerPixel > kMaxBitsPerPixel) {
    return false;
  }
  constexpr std::int64_t kLargestFile = std::numeric_limits<std::uint32_t>::max();
  const std::int64_t rowBytes = (static_cast<std::int64_t>(bitsPerPixel) * width + 31) / 32 * 4;
  if (height > 0 && rowBytes > kLargestFile / height) {
    return false;
  }
  return kFileHeaderSize + LayOut(width, height, bitsPerPixel).blockSize <= kLargestFile;
}

void FillHeader(unsigned char* header, long width, long height, int bitsPerPixel,
                const DibLayout& layout) {
  PutU32(header, kInfoHeaderSize);
  PutU32(header + kWidthOffset, static_cast<std::uint32_t>(width));
  PutU32(header + kHeightOffset, static_cast<std::uint32_t>(height));
  PutU16(header + kPlanesOffset, 1);
  PutU16(header + kBitCountOffset, static_cast<std::uint16_t>(bitsPerPixel));
  PutU32(header + kImageSizeOffset, static_cast<std::uint32_t>(layout.imageSize));
  PutU32(header + kXResolutionOffset, kResolution);
  PutU32(header + kYResolutionOffset, kResolution);
}

void FillGreyRamp(unsigned char* table, int entries) {
  for (int i = 0; i < entries; ++i) {
    std::memset(table, i, 3);
    table += kColorEntrySize;
  }
}

// Where the pixels start and what the header says of them.
struct DibContents {
  std::uint64_t pixelOffset;  // from the start of the information header
  long width;
  long height;
  int bitsPerPixel;
};

// Reads the header of `size` bytes of bitmap. Returns false when a field or the pixels' position
// lies beyond them. The position of the pixels treats every header but the 40-byte one as the
// 12-byte core header, while the sizes know the 108- and 124-byte headers, too; so a paletted image
// with such a header yields a position at its colour table. Hosts rely on nothing better, and it
// stays.
bool ParseDib(const unsigned char* dib, std::uint64_t size, DibContents& contents) {
  if (size < 4) {
    return false;
  }
  const std::uint32_t headerSize = GetU32(dib);
  const bool isInfoHeader = headerSize == kInfoHeaderSize;
  const bool hasFullSizes =
      isInfoHeader || headerSize == kV4HeaderSize || headerSize == kV5HeaderSize;
  const int fieldsEnd = isInfoHeader   ? kColorsUsedOffset + 4
                        : hasFullSizes ? kBitCountOffset + 2
                                       : kCoreBitCountOffset + 2;
  if (size < static_cast<std::uint64_t>(fieldsEnd)) {
    return false;
  }

  std::uint64_t tableSize;
  if (isInfoHeader) {
    const std::uint64_t colorsUsed = GetU32(dib + kColorsUsedOffset);
    tableSize = kColorEntrySize * (colorsUsed != 0 ? colorsUsed
                                                   : static_cast<std::uint64_t>(ColorTableEntries(
                                                         GetU16(dib + kBitCountOffset))));
  } else {
    const int entries = ColorTableEntries(GetU16(dib + kCoreBitCountOffset));
    tableSize = std::uint64_t{kCoreColorEntrySize} * static_cast<std::uint64_t>(entries);
  }
  contents.pixelOffset = headerSize + tableSize;

  if (hasFullSizes) {
    contents.width = static_cast<std::int32_t>(GetU32(dib + kWidthOffset));
    contents.height = static_cast<std::int32_t>(GetU32(dib + kHeightOffset));
    contents.bitsPerPixel = GetU16(dib + kBitCountOffset);
  } else {
    contents.width = GetU16(dib + kWidthOffset);
    contents.height = GetU16(dib + kCoreHeightOffset);
    contents.bitsPerPixel = GetU16(dib + kCoreBitCountOffset);
  }
  return contents.pixelOffset <= size;
}

// Reads everything after the file header into a block of the whole file's size.
bool LoadDib(const char* path, GlobalBlock& block, std::uint64_t& size) {
  CFile file;
  if (!file.Open(CA2T(path), CFile::modeReadWrite)) {
    return false;
  }
  const ULONGLONG length = file.GetLength();
  unsigned char header[kFileHeaderSize];
  if (file.Read(header, kFileHeaderSize) < kFileHeaderSize || GetU16(header) != kBmpType) {
    return false;
  }
  if (length < kFileHeaderSize || length > std::numeric_limits<UINT>::max()) {
    return false;
  }
  block = GlobalBlock(static_cast<SIZE_T>(length));
  if (!block.IsValid()) {
    return false;
  }
  size = length - kFileHeaderSize;
  return file.Read(block.Data(), static_cast<UINT>(size)) == size;
}

}  // namespace

bool Save_Image(const unsigned char* pixels, long width, long height, int bitsPerPixel,
                const char* path) {
  if (path == nullptr || !CanBeStored(width, height, bitsPerPixel)) {
    return false;
  }
  const DibLayout layout = LayOut(width, height, bitsPerPixel);
  if (pixels == nullptr && layout.packedSize > 0) {
    return false;
  }
  GlobalBlock dib(static_cast<SIZE_T>(layout.blockSize));
  if (!dib.IsValid()) {
    return false;
  }
  FillHeader(dib.Data(), width, height, bitsPerPixel, layout);
  FillGreyRamp(dib.Data() + kInfoHeaderSize, ColorTableEntries(bitsPerPixel));
  if (layout.packedSize > 0) {
    std::memcpy(dib.Data() + kInfoHeaderSize + layout.tableSize, pixels,
                static_cast<std::size_t>(layout.packedSize));
  }

  CFile file;
  if (!file.Open(CA2T(path), CFile::modeCreate | CFile::modeWrite)) {
    return false;
  }
  const std::int64_t dibSize = kInfoHeaderSize + layout.tableSize + layout.imageSize;
  unsigned char header[kFileHeaderSize] = {};
  PutU16(header, kBmpType);
  PutU32(header + 2, static_cast<std::uint32_t>(kFileHeaderSize + dibSize));
  PutU32(header + 10,
         static_cast<std::uint32_t>(kFileHeaderSize + kInfoHeaderSize + layout.tableSize));
  file.Write(header, kFileHeaderSize);
  file.Write(dib.Data(), static_cast<UINT>(dibSize));
  file.Close();
  return true;
}

bool Read_Image(unsigned char*& pixels, long& width, long& height, int& bitsPerPixel,
                const char* path) {
  if (path == nullptr) {
    return false;
  }
  GlobalBlock block;
  std::uint64_t size = 0;
  DibContents contents;
  try {
    if (!LoadDib(path, block, size)) {
      return false;
    }
  } catch (CFileException* exception) {
    exception->Delete();
    return false;
  }
  if (!ParseDib(block.Data(), size, contents)) {
    return false;
  }
  pixels = block.HandOver() + contents.pixelOffset;
  width = contents.width;
  height = contents.height;
  bitsPerPixel = contents.bitsPerPixel;
  return true;
}

}  // namespace quorvex
