// Reads TIFF pictures from memory, through libtiff; tiff_reader_missing.cpp stands in for it where
// a build has not got the library.
#ifndef QUORVEX_TOOLS_PICTURES_TIFF_READER_H_
#define QUORVEX_TOOLS_PICTURES_TIFF_READER_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/pictures/grey_levels.h"
#include "tools/pictures/picture.h"

namespace quorvex::tools {

// Whether this build has the library.
bool ReadsTiff();

// Reads the one picture of a file, previews beside it left out: grey and red-green-blue of 8 and 16
// bits, whole numbers without a sign, in strips, in any compression that libtiff has. 16 bits are
// scaled by `levels` or from their full range, colour becomes grey by GreyPixels, channels beyond
// the colours are ignored, and a noted orientation turns nothing but is told by the picture's note.
// Throws InputError (tools/errors.h) with `name`. Thread-safe.
Picture DecodeTiff(const std::vector<std::uint8_t>& bytes, const std::string& name,
                   const std::optional<GreyLevels>& levels);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_TIFF_READER_H_
