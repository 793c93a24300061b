// BMP files made field by field, so that a test can put any value into any place.
#ifndef QUORVEX_TESTS_SUPPORT_BMP_BYTES_H_
#define QUORVEX_TESTS_SUPPORT_BMP_BYTES_H_

#include <cstdint>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace quorvex::tests {

inline void Append(Bytes& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i) {
    bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
  }
}

// The fields of a file; `pixels` are the stored rows with their padding.
struct BmpFields {
  std::uint32_t headerBytes = 40;
  std::uint32_t width = 3;
  std::uint32_t height = 2;
  std::uint32_t bitsPerPixel = 8;
  std::uint32_t compression = 0;
  std::uint32_t paletteColors = 0;
  Bytes masks;    // red, green, blue
  Bytes palette;  // as stored
  Bytes gap;      // between the palette and the pixels
  Bytes pixels;
};

inline Bytes GreyPalette(int colors, int entryBytes) {
  Bytes palette;
  for (int i = 0; i < colors; ++i) {
    palette.insert(palette.end(), 3, static_cast<std::uint8_t>(i));
    palette.insert(palette.end(), static_cast<std::size_t>(entryBytes - 3), 0);
  }
  return palette;
}

// 3 x 2 pixels of 8 bits; shown from the top: 1 2 3 / 4 5 6.
inline BmpFields SmallGreyBmp() {
  BmpFields fields;
  fields.palette = GreyPalette(256, 4);
  fields.pixels = {4, 5, 6, 0, 1, 2, 3, 0};
  return fields;
}

inline Bytes MakeBmp(const BmpFields& fields) {
  Bytes bytes = {'B', 'M'};
  Append(bytes, 0, 4);  // the file's size is not looked at
  Append(bytes, 0, 4);
  // The masks lie after a header of 40 bytes and inside the longer ones.
  const std::size_t headerEnd =
      14 + fields.headerBytes + (fields.headerBytes == 40 ? fields.masks.size() : 0);
  const std::size_t offset = headerEnd + fields.palette.size() + fields.gap.size();
  Append(bytes, static_cast<std::uint32_t>(offset), 4);
  Append(bytes, fields.headerBytes, 4);
  const int sizeBytes = fields.headerBytes == 12 ? 2 : 4;
  Append(bytes, fields.width, sizeBytes);
  Append(bytes, fields.height, sizeBytes);
  Append(bytes, 1, 2);
  Append(bytes, fields.bitsPerPixel, 2);
  if (fields.headerBytes != 12) {
    Append(bytes, fields.compression, 4);
    bytes.insert(bytes.end(), 12, 0);  // size of the pixels, resolution
    Append(bytes, fields.paletteColors, 4);
    Append(bytes, 0, 4);
  }
  bytes.insert(bytes.end(), fields.masks.begin(), fields.masks.end());
  bytes.resize(headerEnd);
  for (const Bytes* part : {&fields.palette, &fields.gap, &fields.pixels}) {
    bytes.insert(bytes.end(), part->begin(), part->end());
  }
  return bytes;
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_BMP_BYTES_H_
