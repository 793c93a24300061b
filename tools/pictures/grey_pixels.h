// Grey values of coloured pixels.
#ifndef QUORVEX_TOOLS_PICTURES_GREY_PIXELS_H_
#define QUORVEX_TOOLS_PICTURES_GREY_PIXELS_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quorvex::tools {

// `count` zeros. Throws InputError (tools/errors.h) naming the file and the number of bytes when
// there is no memory for them.
std::vector<std::uint8_t> AllocatePixels(std::size_t count, const std::string& name);

// One value a pixel of `samples`, which are blue, green and red, with a fourth byte that is ignored
// at 32 bits per pixel. A picture whose three channels are equal in every pixel is grey as it is;
// any other goes through the library's ConvertRGBToGray, which lowers some neutral pixels by one
// level, since it truncates. `name` is the file, for AllocatePixels.
std::vector<std::uint8_t> GreyPixels(std::vector<std::uint8_t>& samples, int width, int height,
                                     int bitsPerPixel, const std::string& name);

// The same of red-green-blue triples without gaps, whose order is turned round in place.
std::vector<std::uint8_t> GreyOfRgb(std::vector<std::uint8_t>& rgb, int width, int height,
                                    const std::string& name);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_GREY_PIXELS_H_
