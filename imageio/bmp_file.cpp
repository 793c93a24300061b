#include "imageio/bmp_file.h"

#include <cstdint>
#include <cstring>
#include <limits>

#include "imageio/bmp_header.h"
#include "imageio/global_block.h"
#include "imageio/little_endian.h"
#include "platform/mfc.h"

namespace quorvex {
namespace {

constexpr int kV4HeaderSize = 108;             // bytes
constexpr int kV5HeaderSize = 124;             // bytes
constexpr int kColorEntrySize = 4;             // bytes: blue, green, red, unused
constexpr std::uint32_t kCoreHeaderSize = 12;  // bytes
constexpr int kCoreColorEntrySize = 3;         // bytes: blue, green, red

// Offsets of fields from the start of the 12-byte core header.
constexpr int kCoreHeightOffset = 6;
constexpr int kCoreBitCountOffset = 10;

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
  // All fields lie in the header; of one that calls itself shorter than the core header, in that.
  if (size < kCoreHeaderSize || size < GetU32(dib)) {
    return false;
  }
  const std::uint32_t headerSize = GetU32(dib);
  const bool isInfoHeader = headerSize == kBmpInfoHeaderSize;
  const bool hasFullSizes =
      isInfoHeader || headerSize == kV4HeaderSize || headerSize == kV5HeaderSize;

  std::uint64_t tableSize;
  if (isInfoHeader) {
    const std::uint64_t colorsUsed = GetU32(dib + kBmpColorsUsedOffset);
    tableSize =
        kColorEntrySize *
        (colorsUsed != 0
             ? colorsUsed
             : static_cast<std::uint64_t>(BmpColorTableEntries(GetU16(dib + kBmpBitCountOffset))));
  } else {
    const int entries = BmpColorTableEntries(GetU16(dib + kCoreBitCountOffset));
    tableSize = std::uint64_t{kCoreColorEntrySize} * static_cast<std::uint64_t>(entries);
  }
  contents.pixelOffset = headerSize + tableSize;

  if (hasFullSizes) {
    contents.width = static_cast<std::int32_t>(GetU32(dib + kBmpWidthOffset));
    contents.height = static_cast<std::int32_t>(GetU32(dib + kBmpHeightOffset));
    contents.bitsPerPixel = GetU16(dib + kBmpBitCountOffset);
  } else {
    contents.width = GetU16(dib + kBmpWidthOffset);
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
  unsigned char header[kBmpFileHeaderSize];
  if (file.Read(header, kBmpFileHeaderSize) < kBmpFileHeaderSize || GetU16(header) != kBmpType) {
    return false;
  }
  if (length < kBmpFileHeaderSize || length > std::numeric_limits<UINT>::max()) {
    return false;
  }
  block = GlobalBlock(static_cast<SIZE_T>(length));
  if (!block.IsValid()) {
    return false;
  }
  size = length - kBmpFileHeaderSize;
  return file.Read(block.Data(), static_cast<UINT>(size)) == size;
}

}  // namespace

bool Save_Image(const unsigned char* pixels, long width, long height, int bitsPerPixel,
                const char* path) {
  if (path == nullptr || !CanBeStoredAsBmp(width, height, bitsPerPixel)) {
    return false;
  }
  const BmpLayout layout = LayOutBmp(width, height, bitsPerPixel);
  if (pixels == nullptr && layout.packedSize > 0) {
    return false;
  }
  GlobalBlock dib(static_cast<SIZE_T>(layout.blockSize));
  if (!dib.IsValid()) {
    return false;
  }
  FillBmpInfo(dib.Data(), width, height, bitsPerPixel);
  if (layout.packedSize > 0) {
    std::memcpy(dib.Data() + kBmpInfoHeaderSize + layout.tableSize, pixels,
                static_cast<std::size_t>(layout.packedSize));
  }

  CFile file;
  if (!file.Open(CA2T(path), CFile::modeCreate | CFile::modeWrite)) {
    return false;
  }
  unsigned char header[kBmpFileHeaderSize];
  FillBmpFileHeader(header, layout);
  file.Write(header, kBmpFileHeaderSize);
  file.Write(dib.Data(),
             static_cast<UINT>(kBmpInfoHeaderSize + layout.tableSize + layout.imageSize));
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
