// Reads BMP pictures from memory.
#ifndef QUORVEX_TOOLS_PICTURES_BMP_READER_H_
#define QUORVEX_TOOLS_PICTURES_BMP_READER_H_

#include <cstdint>
#include <string>
#include <vector>

#include "tools/pictures/picture.h"

namespace quorvex::tools {

// Whether the bytes start like a BMP file.
bool IsBmp(const std::vector<std::uint8_t>& bytes);

// Reads uncompressed files of 8 (paletted), 24 and 32 bits, bottom-up and top-down, with headers of
// 12, 40, 108 or 124 bytes. Colour becomes grey by GreyPixels. Everything is checked against the
// number of bytes before a pixel is allocated; bytes after the pixels are ignored.
Picture DecodeBmp(const std::vector<std::uint8_t>& bytes, const std::string& name);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_BMP_READER_H_
