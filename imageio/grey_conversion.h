// Conversion of colour pixels to grey.
#ifndef QUORVEX_IMAGEIO_GREY_CONVERSION_H_
#define QUORVEX_IMAGEIO_GREY_CONVERSION_H_

namespace quorvex {

// Writes width * height grey bytes from tightly packed rows of blue-green-red (24 bits) or
// blue-green-red-unused (32 bits) pixels; row r of the source becomes row r of `grey`. The weights
// are those of ITU-R BT.601, the sum is cut, not rounded. Any other depth shows a message and
// leaves `grey` as it was.
void ConvertRGBToGray(const unsigned char* pixels, long width, long height, int bitsPerPixel,
                      unsigned char* grey);

}  // namespace quorvex

#endif  // QUORVEX_IMAGEIO_GREY_CONVERSION_H_
