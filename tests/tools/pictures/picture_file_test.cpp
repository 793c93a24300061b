#include "tools/pictures/picture_file.h"

#include <gtest/gtest.h>
#include <png.h>

#include "interface/quorvex.h"
#include "tests/support/bmp_bytes.h"
#include "tests/support/temporary_folder.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

Picture Ramp(int width, int height) {
  Picture picture;
  picture.width = width;
  picture.height = height;
  for (int i = 0; i < width * height; ++i) {
    picture.pixels.push_back(static_cast<std::uint8_t>(i * 7));
  }
  return picture;
}

// What the library makes of blue-green-red triples.
Bytes LibraryGrey(Bytes bgr) {
  Bytes grey(bgr.size() / 3);
  ConvertRGBToGray(bgr.data(), static_cast<long>(grey.size()), 1, 24, grey.data());
  return grey;
}

Picture ReadBytesAsPicture(const Bytes& bytes) {
  const TemporaryFolder folder;
  WriteBytes(folder.Path("picture"), bytes);
  return ReadPictureFile(folder.Path("picture"));
}

Bytes EncodeWithLibpng(int width, int height, png_uint_32 format, const Bytes& samples) {
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

class PictureRoundTrip : public testing::TestWithParam<const char*> {};

TEST_P(PictureRoundTrip, KeepsEveryPixelAtEveryRowPadding) {
  const TemporaryFolder folder;
  for (int width = 1; width <= 5; ++width) {
    const Picture picture = Ramp(width, 3);
    WritePictureFile(picture, folder.Path(GetParam()));
    const Picture read = ReadPictureFile(folder.Path(GetParam()));
    EXPECT_EQ(read.width, width);
    EXPECT_EQ(read.height, 3);
    EXPECT_EQ(read.pixels, picture.pixels);
  }
  EXPECT_EQ(folder.FileCount(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Endings, PictureRoundTrip, testing::Values("a.bmp", "a.png", "a.BMP"));

TEST(ReadBmp, BottomUpRowsComeOutTopFirst) {
  EXPECT_EQ(ReadBytesAsPicture(MakeBmp(SmallGreyBmp())).pixels, Bytes({1, 2, 3, 4, 5, 6}));
}

TEST(ReadBmp, NegativeHeightMeansTopDown) {
  BmpFields fields = SmallGreyBmp();
  fields.height = static_cast<std::uint32_t>(-2);
  EXPECT_EQ(ReadBytesAsPicture(MakeBmp(fields)).pixels, Bytes({4, 5, 6, 1, 2, 3}));
}

TEST(ReadBmp, PixelsAreFoundByTheOffsetField) {
  BmpFields fields = SmallGreyBmp();
  fields.gap = Bytes(13, 99);
  EXPECT_EQ(ReadBytesAsPicture(MakeBmp(fields)).pixels, Bytes({1, 2, 3, 4, 5, 6}));
}

TEST(ReadBmp, LongHeadersAreRead) {
  for (const std::uint32_t headerBytes : {108u, 124u}) {
    BmpFields fields = SmallGreyBmp();
    fields.headerBytes = headerBytes;
    EXPECT_EQ(ReadBytesAsPicture(MakeBmp(fields)).pixels, Bytes({1, 2, 3, 4, 5, 6}));
  }
}

TEST(ReadBmp, CoreHeaderHasThreeByteColours) {
  BmpFields fields = SmallGreyBmp();
  fields.headerBytes = 12;
  fields.palette = GreyPalette(256, 3);
  EXPECT_EQ(ReadBytesAsPicture(MakeBmp(fields)).pixels, Bytes({1, 2, 3, 4, 5, 6}));
}

TEST(ReadBmp, PaletteColoursBecomeGrey) {
  BmpFields fields = SmallGreyBmp();
  fields.paletteColors = 7;
  fields.palette = GreyPalette(7, 4);
  fields.palette[4] = 10;  // entry 1: blue, green, red
  fields.palette[5] = 200;
  fields.palette[6] = 90;
  const Bytes pixels = ReadBytesAsPicture(MakeBmp(fields)).pixels;
  EXPECT_EQ(pixels[0], LibraryGrey({10, 200, 90})[0]);
  EXPECT_EQ(pixels[1], 2);
}

TEST(ReadBmp, NeutralPaletteEntriesKeepTheirValue) {
  BmpFields fields = SmallGreyBmp();
  fields.width = 256;
  fields.height = 1;
  fields.pixels.clear();
  for (int i = 0; i < 256; ++i) {
    fields.pixels.push_back(static_cast<std::uint8_t>(i));
  }
  EXPECT_EQ(ReadBytesAsPicture(MakeBmp(fields)).pixels, fields.pixels);
}

TEST(ReadBmp, ColourRowsLoseTheirPadding) {
  BmpFields fields;
  fields.width = 1;
  fields.bitsPerPixel = 24;
  fields.pixels = {10, 20, 230, 0, 200, 30, 40, 0};
  EXPECT_EQ(ReadBytesAsPicture(MakeBmp(fields)).pixels, LibraryGrey({200, 30, 40, 10, 20, 230}));
}

TEST(ReadBmp, ThirtyTwoBitsAreReadWithAndWithoutMasks) {
  BmpFields fields;
  fields.width = 2;
  fields.height = 1;
  fields.bitsPerPixel = 32;
  fields.pixels = {10, 20, 230, 7, 200, 30, 40, 9};
  const Bytes expected = LibraryGrey({10, 20, 230, 200, 30, 40});
  EXPECT_EQ(ReadBytesAsPicture(MakeBmp(fields)).pixels, expected);

  fields.compression = 3;
  Append(fields.masks, 0x00ff0000, 4);
  Append(fields.masks, 0x0000ff00, 4);
  Append(fields.masks, 0x000000ff, 4);
  EXPECT_EQ(ReadBytesAsPicture(MakeBmp(fields)).pixels, expected);
  fields.headerBytes = 124;
  EXPECT_EQ(ReadBytesAsPicture(MakeBmp(fields)).pixels, expected);
}

TEST(ReadPng, ColourBecomesTheLibrarysGrey) {
  const Bytes png = EncodeWithLibpng(2, 1, PNG_FORMAT_BGR, {10, 20, 230, 200, 30, 40});
  EXPECT_EQ(ReadBytesAsPicture(png).pixels, LibraryGrey({10, 20, 230, 200, 30, 40}));
}

TEST(ReadPng, OpaquePixelsStayAndTransparentOnesLieOnWhite) {
  const Bytes png = EncodeWithLibpng(2, 1, PNG_FORMAT_BGRA, {10, 20, 230, 255, 200, 30, 40, 0});
  EXPECT_EQ(ReadBytesAsPicture(png).pixels, LibraryGrey({10, 20, 230, 255, 255, 255}));
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
  EXPECT_EQ(ReadBytesAsPicture(bytes).pixels, Bytes({0, 100, 255}));
}

TEST(WriteColorPng, KeepsTheOrderOfTheColours) {
  const TemporaryFolder folder;
  WriteColorPng({2, 1, {230, 20, 10, 40, 30, 200}}, folder.Path("color.png"));
  EXPECT_EQ(ReadPictureFile(folder.Path("color.png")).pixels,
            LibraryGrey({10, 20, 230, 200, 30, 40}));
}

TEST(WritePicture, ReplacesAnExistingFile) {
  const TemporaryFolder folder;
  WriteBytes(folder.Path("a.bmp"), Bytes(5000, 1));
  WritePictureFile(Ramp(4, 4), folder.Path("a.bmp"));
  EXPECT_EQ(ReadBytes(folder.Path("a.bmp")).size(), 14u + 40 + 256 * 4 + 4 * 4);
}

void ExpectWriteFailure(const std::string& path, const std::string& fragment) {
  try {
    WritePictureFile(Ramp(4, 4), path);
    ADD_FAILURE() << "wrote " << path;
  } catch (const InputError& error) {
    EXPECT_NE(std::string(error.what()).find(path), std::string::npos) << error.what();
    EXPECT_NE(std::string(error.what()).find(fragment), std::string::npos) << error.what();
  }
}

TEST(WritePicture, FailuresNameTheFileAndLeaveNothingBehind) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.Path("folder.bmp"));
  ExpectWriteFailure(folder.Path("a.gif"), "must end in .bmp or .png");
  ExpectWriteFailure(folder.Path("bmp"), "must end in .bmp or .png");
  ExpectWriteFailure(folder.Path("absent/a.bmp"), "No such file or directory");
  ExpectWriteFailure(folder.Path("folder.bmp"), "it is a directory");
  EXPECT_EQ(folder.FileCount(), 1u);
}

}  // namespace
}  // namespace quorvex::tests
