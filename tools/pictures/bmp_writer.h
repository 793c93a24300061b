// Writes BMP pictures into memory.
#ifndef QUORVEX_TOOLS_PICTURES_BMP_WRITER_H_
#define QUORVEX_TOOLS_PICTURES_BMP_WRITER_H_

#include <cstdint>
#include <string>
#include <vector>

#include "tools/pictures/picture.h"

namespace quorvex::tools {

// 8 bits, bottom-up, with the 256 greys as the palette. Throws InputError (tools/errors.h) with
// `name`, the file in question, when the picture is larger than the format can hold.
std::vector<std::uint8_t> EncodeBmp(const Picture& picture, const std::string& name);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_BMP_WRITER_H_
