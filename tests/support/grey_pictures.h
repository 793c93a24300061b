// What the tests of the picture readers share.
#ifndef QUORVEX_TESTS_SUPPORT_GREY_PICTURES_H_
#define QUORVEX_TESTS_SUPPORT_GREY_PICTURES_H_

#include <gtest/gtest.h>
#include <png.h>

#include "interface/quorvex.h"
#include "tests/support/temporary_folder.h"

namespace quorvex::tests {

// What the library makes of blue-green-red triples.
inline Bytes LibraryGrey(Bytes bgr) {
  Bytes grey(bgr.size() / 3);
  ConvertRGBToGray(bgr.data(), static_cast<long>(grey.size()), 1, 24, grey.data());
  return grey;
}

inline Bytes EncodeWithLibpng(int width, int height, png_uint_32 format, const Bytes& samples) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(width);
  image.height = static_cast<png_uint_32>(height);
  image.format = format;
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
  Bytes bytes(size);
  EXPECT_NE(png_image_write_to_memory(&image, bytes.data(), &size, 0, samples.data(), 0, nullptr),
            0);
  bytes.resize(size);
  return bytes;
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_GREY_PICTURES_H_
