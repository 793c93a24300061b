// PNG pictures of 16 bits a sample, value by value.
#ifndef QUORVEX_TOOLS_PICTURES_DEEP_PNG_READER_H_
#define QUORVEX_TOOLS_PICTURES_DEEP_PNG_READER_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/pictures/grey_levels.h"
#include "tools/pictures/picture.h"

namespace quorvex::tools {

// For grey and colour of 16 bits a sample without transparency, whose size was checked. Samples are
// those of the file, whatever gamma it notes, scaled by `levels` or from their full range; colour
// becomes grey by GreyPixels. Throws InputError (tools/errors.h) with `name`.
Picture DecodeDeepPng(const std::vector<std::uint8_t>& bytes, const std::string& name,
                      const std::optional<GreyLevels>& levels);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_DEEP_PNG_READER_H_
