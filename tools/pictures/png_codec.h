// PNG pictures in memory, through libpng. All functions throw InputError (tools/errors.h) with
// `name`, the file in question, and the reason.
#ifndef QUORVEX_TOOLS_PICTURES_PNG_CODEC_H_
#define QUORVEX_TOOLS_PICTURES_PNG_CODEC_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/pictures/grey_levels.h"
#include "tools/pictures/picture.h"

namespace quorvex::tools {

// Whether the bytes start with the PNG signature.
bool IsPng(const std::vector<std::uint8_t>& bytes);

// Reads grey, colour and paletted pictures of 1 to 16 bits; transparent pixels lie on white, and
// colour becomes grey by GreyPixels. 16 bits are scaled by `levels` or from their full range; those
// with transparency have their full range always, and are refused where `levels` are given.
Picture DecodePng(const std::vector<std::uint8_t>& bytes, const std::string& name,
                  const std::optional<GreyLevels>& levels = std::nullopt);

std::vector<std::uint8_t> EncodePng(const Picture& picture, const std::string& name);
std::vector<std::uint8_t> EncodePng(const ColorPicture& picture, const std::string& name);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_PNG_CODEC_H_
