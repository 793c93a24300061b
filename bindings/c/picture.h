// The picture behind the C interface's handle, and the decoding of BMP files.
#ifndef QUORVEX_BINDINGS_C_PICTURE_H_
#define QUORVEX_BINDINGS_C_PICTURE_H_

#include <string>
#include <vector>

#include "interface/quorvex_c.h"

struct quorvex_picture {
  int width = 0;
  int height = 0;
  std::vector<unsigned char> pixels;  // grey, the top row first, no gaps
};

namespace quorvex::bindings {

constexpr int kLargestSide = 32768;  // pixels

// Of the bytes of an uncompressed BMP file: 8 bits with any palette, 24 or 32 bits. A picture whose
// colours are all grey keeps their levels, another one is converted. Throws Failure with
// QUORVEX_ERROR_FORMAT; the name is the file's, for its sentence.
quorvex_picture DecodeBmp(const std::vector<unsigned char>& bytes, const std::string& name);

}  // namespace quorvex::bindings

#endif  // QUORVEX_BINDINGS_C_PICTURE_H_
