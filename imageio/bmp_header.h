// The headers of the BMP files that the library writes: what stands before the pixels, and where.
#ifndef QUORVEX_IMAGEIO_BMP_HEADER_H_
#define QUORVEX_IMAGEIO_BMP_HEADER_H_

#include <cstdint>

namespace quorvex {

constexpr int kBmpFileHeaderSize = 14;  // bytes
constexpr int kBmpInfoHeaderSize = 40;  // bytes
constexpr int kBmpType = 0x4D42;        // "BM"

// Offsets of fields from the start of the information header.
constexpr int kBmpWidthOffset = 4;
constexpr int kBmpHeightOffset = 8;
constexpr int kBmpBitCountOffset = 14;
constexpr int kBmpColorsUsedOffset = 32;

// Sizes of a bitmap in bytes. The formulas for the pixel rows differ where a row of pixels ends
// within a byte; the block is large enough for all of them.
struct BmpLayout {
  std::int64_t tableSize;   // the grey ramp; 0 for true colour
  std::int64_t packedSize;  // the caller's pixels, rows without padding
  std::int64_t imageSize;   // the rows as written to the file
  std::int64_t blockSize;   // header, table and rows in memory
};

// Entries of the colour table that belongs to a depth; 0 for true colour.
int BmpColorTableEntries(int bitsPerPixel);

// Whether sizes from 0 on, 1 to 32 bits a pixel, fit the 32-bit fields of a file.
bool CanBeStoredAsBmp(long width, long height, int bitsPerPixel);

// Of an image that can be stored.
BmpLayout LayOutBmp(std::int64_t width, std::int64_t height, int bitsPerPixel);

// Fills 14 bytes.
void FillBmpFileHeader(unsigned char* header, const BmpLayout& layout);

// Fills the information header and the colour table that follows it: 40 bytes and the layout's
// table size, all zero before.
void FillBmpInfo(unsigned char* info, long width, long height, int bitsPerPixel);

}  // namespace quorvex

#endif  // QUORVEX_IMAGEIO_BMP_HEADER_H_
