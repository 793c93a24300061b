// Reads PGM pictures from memory.
#ifndef QUORVEX_TOOLS_PICTURES_PGM_READER_H_
#define QUORVEX_TOOLS_PICTURES_PGM_READER_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/pictures/grey_levels.h"
#include "tools/pictures/picture.h"

namespace quorvex::tools {

// Whether the bytes start like a PGM file, binary (P5) or of text (P2).
bool IsPgm(const std::vector<std::uint8_t>& bytes);

// Values are scaled by the largest one that the header allows, those of more than 8 bits by
// `levels` where given. Everything is checked against the number of bytes before a pixel is
// allocated; bytes after the pixels are ignored. Throws InputError (tools/errors.h) with `name`.
Picture DecodePgm(const std::vector<std::uint8_t>& bytes, const std::string& name,
                  const std::optional<GreyLevels>& levels);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_PGM_READER_H_
