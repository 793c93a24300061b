// Writes grey JPEG pictures to memory, through libjpeg; jpeg_writer_missing.cpp stands in for it
// where a build has not got the library.
#ifndef QUORVEX_TOOLS_PICTURES_JPEG_WRITER_H_
#define QUORVEX_TOOLS_PICTURES_JPEG_WRITER_H_

#include <cstdint>
#include <vector>

#include "tools/pictures/picture.h"

namespace quorvex::tools {

// Whether this build has the library.
bool WritesJpeg();

// `quality` is libjpeg's, 1 to 100. Throws std::runtime_error with libjpeg's reason, and always
// where this build has not got the library.
std::vector<std::uint8_t> EncodeJpeg(const Picture& picture, int quality);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_JPEG_WRITER_H_
