// Loads a picture for the examples, and says why it cannot be used.
#ifndef QUORVEX_EXAMPLES_CHECKED_PICTURE_H_
#define QUORVEX_EXAMPLES_CHECKED_PICTURE_H_

#include <cstdio>
#include <fstream>

#include "interface/quorvex.h"

struct CheckedPicture {
  unsigned char* pixels = nullptr;
  long width = 0;   // pixels
  long height = 0;  // pixels
  int bits = 0;     // a pixel; 8
};

constexpr long kBmpHeaderBytes = 14 + 40;  // of the file, then of the bitmap

// Bytes before the first pixel; 0 for a file that is shorter than its headers, or has others.
inline long BytesBeforePixels(std::ifstream& file) {
  unsigned char header[kBmpHeaderBytes] = {};
  file.seekg(0);
  if (!file.read(reinterpret_cast<char*>(header), sizeof header)) {
    return 0;
  }
  if (header[14] != 40 || header[15] != 0) {
    return 0;
  }
  const long colors = header[46] | header[47] << 8;  // of the palette, lowest byte first
  if (colors > 256 || header[48] != 0 || header[49] != 0) {
    return 0;
  }
  return kBmpHeaderBytes + 4 * (colors == 0 ? 256 : colors);
}

// Null when the picture can be given to the detection, else the reason why not. Read_Image takes
// sizes and depth from the file's header as they stand there; a file that was cut off holds fewer
// pixels, and whoever reads them all ends in memory that is not the picture's.
inline const char* ReadChecked(const char* path, CheckedPicture& picture) {
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  if (!file) {
    return "the picture cannot be opened";
  }
  const long long fileBytes = static_cast<long long>(file.tellg());
  const long pixelOffset = BytesBeforePixels(file);
  file.close();
  if (!Read_Image(picture.pixels, picture.width, picture.height, picture.bits, path)) {
    return "the picture cannot be read; it must be an uncompressed BMP file";
  }
  if (picture.bits != 8) {
    return "the picture does not have 8 bits a pixel";
  }
  if (picture.width < 4 || picture.width % 4 != 0 || picture.height < 4 ||
      picture.height % 4 != 0) {
    return "the picture's width and height are not multiples of 4";
  }
  if (pixelOffset == 0) {
    return "the picture's header is not the plain one of 40 bytes";
  }
  // Rows of such a width have no padding. Divided, since the product may not fit into any integer.
  if ((fileBytes - pixelOffset) / picture.width < picture.height) {
    return "the picture's file ends before its last pixel";
  }
  return nullptr;
}

#endif  // QUORVEX_EXAMPLES_CHECKED_PICTURE_H_
