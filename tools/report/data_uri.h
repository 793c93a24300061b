// Pictures as text that a page holds (RFC 2397, base64 of RFC 4648).
#ifndef QUORVEX_TOOLS_REPORT_DATA_URI_H_
#define QUORVEX_TOOLS_REPORT_DATA_URI_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tools/pictures/picture.h"

namespace quorvex::tools {

std::string Base64(const std::vector<std::uint8_t>& bytes);

// Lossless.
std::string PngUri(const Picture& picture);

// A picture for the eye: JPEG, or PNG where the build has no JPEG.
std::string PhotoUri(const Picture& picture, int quality);

struct FittedPhoto {
  std::string dataUri;
  int width = 0;  // pixels; the picture's own, or fewer
  int height = 0;
};

// The most of a picture that `characters` can hold: less quality first, then fewer pixels. At least
// 64 pixels remain of the longer side, so that a very small number is not kept to.
FittedPhoto FitPhoto(const Picture& picture, std::size_t characters);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_REPORT_DATA_URI_H_
