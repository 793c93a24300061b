#include "tools/pictures/png_codec.h"

#include <gtest/gtest.h>
#include <png.h>

#include "tests/support/grey_pictures.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(ReadPng, ColourBecomesTheLibrarysGrey) {
  const Bytes png = EncodeWithLibpng(2, 1, PNG_FORMAT_BGR, {10, 20, 230, 200, 30, 40});
  EXPECT_EQ(DecodePng(png, "a.png").pixels, LibraryGrey({10, 20, 230, 200, 30, 40}));
}

TEST(ReadPng, OpaquePixelsStayAndTransparentOnesLieOnWhite) {
  const Bytes png = EncodeWithLibpng(2, 1, PNG_FORMAT_BGRA, {10, 20, 230, 255, 200, 30, 40, 0});
  EXPECT_EQ(DecodePng(png, "a.png").pixels, LibraryGrey({10, 20, 230, 255, 255, 255}));
}

void AppendToBytes(png_structp png, png_bytep data, png_size_t size) {
  Bytes& bytes = *static_cast<Bytes*>(png_get_io_ptr(png));
  bytes.insert(bytes.end(), data, data + size);
}

TEST(ReadPng, SixteenBitsAreScaledToEight) {
  Bytes bytes;
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  png_set_write_fn(png, &bytes, AppendToBytes, nullptr);
  png_set_IHDR(png, info, 3, 1, 16, PNG_COLOR_TYPE_GRAY, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_write_info(png, info);
  const Bytes row = {0, 0, 100, 100, 255, 255};
  png_write_row(png, row.data());
  png_write_end(png, info);
  png_destroy_write_struct(&png, &info);
  EXPECT_EQ(DecodePng(bytes, "a.png").pixels, Bytes({0, 100, 255}));
}

TEST(EncodePng, KeepsGreyAndColour) {
  const Picture grey = {3, 2, {1, 2, 3, 4, 5, 255}};
  EXPECT_EQ(DecodePng(EncodePng(grey, "a.png"), "a.png").pixels, grey.pixels);
  const ColorPicture color = {2, 1, {230, 20, 10, 40, 30, 200}};
  const Bytes bytes = EncodePng(color, "a.png");
  EXPECT_TRUE(IsPng(bytes));
  EXPECT_EQ(DecodePng(bytes, "a.png").pixels, LibraryGrey({10, 20, 230, 200, 30, 40}));
}

TEST(IsPng, LooksAtTheWholeSignature) {
  Bytes bytes = EncodePng(Picture{1, 1, {7}}, "a.png");
  bytes.resize(7);
  EXPECT_FALSE(IsPng(bytes));
  EXPECT_FALSE(IsPng({}));
}

}  // namespace
}  // namespace quorvex::tests
