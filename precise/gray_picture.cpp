#include "precise/gray_picture.h"

namespace quorvex::precise {

GrayPicture CopyPicture(const unsigned char* pixels, int width, int height, std::ptrdiff_t stride,
                        Polarity polarity) {
  GrayPicture picture(width, height, 0);
  // x ^ 255 is 255 - x.
  const unsigned char flip = polarity == Polarity::kLightMarks ? 255 : 0;
  for (int y = 0; y < height; ++y) {
    const unsigned char* from = pixels + stride * y;
    std::uint8_t* to = picture.Row(y);
    for (int x = 0; x < width; ++x) {
      to[x] = static_cast<std::uint8_t>(from[x] ^ flip);
    }
  }
  return picture;
}

}  // namespace quorvex::precise
