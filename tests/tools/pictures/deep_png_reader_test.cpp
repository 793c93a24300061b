#include "tools/pictures/deep_png_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>

#include "tests/support/grey_pictures.h"
#include "tools/errors.h"
#include "tools/pictures/png_codec.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

void AppendToBytes(png_structp png, png_bytep data, png_size_t size) {
  Bytes& bytes = *static_cast<Bytes*>(png_get_io_ptr(png));
  bytes.insert(bytes.end(), data, data + size);
}

// One row of 16-bit samples, which notes a gamma that changes nothing.
Bytes EncodeRow(int colorType, int channels, Bytes samples) {
  Bytes bytes;
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  png_set_write_fn(png, &bytes, AppendToBytes, nullptr);
  png_set_IHDR(
      png, info, static_cast<png_uint_32>(samples.size()) / 2u / static_cast<png_uint_32>(channels),
      1, 16, colorType, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_set_gAMA(png, info, 1.0);
  png_write_info(png, info);
  png_write_row(png, samples.data());
  png_write_end(png, info);
  png_destroy_write_struct(&png, &info);
  return bytes;
}

const Bytes kGrey = {0, 0, 8, 0, 15, 255, 255, 255};

TEST(ReadDeepPng, ScalesTheValuesOfTheFile) {
  const Bytes png = EncodeRow(PNG_COLOR_TYPE_GRAY, 1, kGrey);
  const Picture picture = DecodePng(png, "a.png");
  EXPECT_THAT(picture.pixels, ElementsAre(0, 8, 16, 255));
  EXPECT_EQ(picture.bitsPerSample, 16);
  EXPECT_THAT(DecodePng(png, "a.png", GreyLevels{0, 4095}).pixels, ElementsAre(0, 128, 255, 255));
}

TEST(ReadDeepPng, ColourBecomesTheLibrarysGrey) {
  const Bytes png = EncodeRow(PNG_COLOR_TYPE_RGB, 3, {230, 230, 20, 20, 10, 10});
  EXPECT_EQ(DecodePng(png, "a.png").pixels, LibraryGrey({10, 20, 230}));
}

TEST(ReadDeepPng, LevelsAreNotForTransparentOnes) {
  const Bytes png = EncodeRow(PNG_COLOR_TYPE_GRAY_ALPHA, 2, {9, 9, 255, 255});
  EXPECT_EQ(DecodePng(png, "a.png").pixels.size(), 1u);
  EXPECT_THROW(DecodePng(png, "a.png", GreyLevels{0, 9}), InputError);
}

TEST(ReadDeepPng, RefusesFilesThatAreCut) {
  const Bytes whole = EncodeRow(PNG_COLOR_TYPE_GRAY, 1, kGrey);
  const std::size_t pixels =
      whole.size() - 12 - 4 - 4;  // without the last chunk; inside the pixels
  for (std::size_t size = 33; size < pixels; ++size) {
    const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    try {
      DecodeDeepPng(cut, "a.png", std::nullopt);
      ADD_FAILURE() << size;
    } catch (const InputError& error) {
      EXPECT_THAT(error.what(), HasSubstr("cannot read a.png: the file ends before")) << size;
    }
  }
}

}  // namespace
}  // namespace quorvex::tests
