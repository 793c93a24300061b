// Reads JPEG pictures from memory, through libjpeg; jpeg_reader_missing.cpp stands in for it where
// a build has not got the library.
#ifndef QUORVEX_TOOLS_PICTURES_JPEG_READER_H_
#define QUORVEX_TOOLS_PICTURES_JPEG_READER_H_

#include <cstdint>
#include <string>
#include <vector>

#include "tools/pictures/picture.h"

namespace quorvex::tools {

// Whether this build has the library.
bool ReadsJpeg();

// Reads grey and colour pictures; colour becomes grey by GreyPixels. Pixels are those of the file:
// an orientation that the camera noted (Exif) turns nothing, and is told by the picture's note.
// Damage that libjpeg would paint over is refused. Throws InputError (tools/errors.h) with `name`.
Picture DecodeJpeg(const std::vector<std::uint8_t>& bytes, const std::string& name);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_JPEG_READER_H_
