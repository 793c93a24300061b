// How a camera was held, as picture files note it: a number from 1, upright, to 8.
#ifndef QUORVEX_TOOLS_PICTURES_ORIENTATION_H_
#define QUORVEX_TOOLS_PICTURES_ORIENTATION_H_

#include <cstddef>
#include <cstdint>
#include <string>

namespace quorvex::tools {

constexpr int kUpright = 1;

// The orientation in the bytes of a JPEG file's Exif marker; kUpright where there is none.
int ExifOrientation(const std::uint8_t* bytes, std::size_t size);

// A sentence on an orientation that is not followed, since a lens is calibrated on the pixels of
// the sensor; empty for kUpright and for numbers that mean nothing.
std::string OrientationNote(int orientation);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_ORIENTATION_H_
