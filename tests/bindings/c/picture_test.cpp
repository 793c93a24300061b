#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>

#include "imageio/bmp_file.h"
#include "imageio/little_endian.h"
#include "interface/quorvex_c.h"
#include "tests/support/bytes.h"
#include "tests/support/message_box.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr char kName[] = "picture.bmp";

class CPictureTest : public ::testing::Test {
 protected:
  ~CPictureTest() override { EXPECT_TRUE(TakeMessages().empty()); }

  // The grey levels from the top row on, or none and the error in `error`.
  Bytes Read() {
    quorvex_picture* picture = nullptr;
    error = quorvex_read_bmp(kName, &picture);
    if (error != QUORVEX_OK) {
      EXPECT_EQ(picture, nullptr);
      return {};
    }
    quorvex_image image;
    EXPECT_EQ(quorvex_picture_image(picture, &image), QUORVEX_OK);
    EXPECT_EQ(image.stride, image.width);
    width = image.width;
    const Bytes pixels(image.pixels, image.pixels + image.stride * image.height);
    quorvex_picture_free(picture);
    return pixels;
  }

  quorvex_error error = QUORVEX_OK;
  int width = 0;

 private:
  TemporaryDirectory directory_;
};

TEST_F(CPictureTest, IsTheLibrarysFileWhereRowsNeedNoPadding) {
  const Bytes topDown = {1, 2, 3, 4, 5, 6, 7, 8};
  const quorvex_image image = {topDown.data(), 4, 2, 4};
  ASSERT_EQ(quorvex_write_bmp(kName, &image), QUORVEX_OK);
  const Bytes bottomUp = {5, 6, 7, 8, 1, 2, 3, 4};
  ASSERT_TRUE(Save_Image(bottomUp.data(), 4, 2, 8, "same.bmp"));
  EXPECT_EQ(ReadBytes(kName), ReadBytes("same.bmp"));
}

TEST_F(CPictureTest, WidthsOfAnyMultipleAreReadBack) {
  const Bytes rows = {1, 2, 3, 4, 5, 99, 6, 7, 8, 9, 10, 99};  // a stride of 6
  const quorvex_image image = {rows.data(), 5, 2, 6};
  ASSERT_EQ(quorvex_write_bmp(kName, &image), QUORVEX_OK);
  EXPECT_EQ(Read(), (Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
  EXPECT_EQ(width, 5);
}

TEST_F(CPictureTest, RowsMayRunUpwardsInMemory) {
  const Bytes rows = {5, 6, 7, 8, 1, 2, 3, 4};
  const quorvex_image image = {rows.data() + 4, 4, 2, -4};
  ASSERT_EQ(quorvex_write_bmp(kName, &image), QUORVEX_OK);
  EXPECT_EQ(Read(), (Bytes{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(CPictureTest, ColoursAreConverted) {
  const Bytes colours = {10, 20, 30, 255, 255, 255, 0, 0, 0, 1, 2, 3};
  ASSERT_TRUE(Save_Image(colours.data(), 4, 1, 24, kName));
  EXPECT_EQ(Read(), (Bytes{21, 255, 0, 2}));
}

TEST_F(CPictureTest, GreysAreKeptFromTrueColour) {
  const Bytes colours = {7, 7, 7, 0, 200, 200, 200, 0};
  ASSERT_TRUE(Save_Image(colours.data(), 2, 1, 32, kName));
  EXPECT_EQ(Read(), (Bytes{7, 200}));
}

TEST_F(CPictureTest, PalettesAreLookedUp) {
  const Bytes pixels = {0, 1, 2, 255};
  ASSERT_TRUE(Save_Image(pixels.data(), 4, 1, 8, kName));
  Bytes file = ReadBytes(kName);
  for (std::size_t i = 0; i < 256; ++i) {  // inverted
    for (std::size_t channel = 0; channel < 3; ++channel) {
      file[54 + 4 * i + channel] = static_cast<unsigned char>(255 - i);
    }
  }
  WriteBytes(kName, file);
  EXPECT_EQ(Read(), (Bytes{255, 254, 253, 0}));
}

TEST_F(CPictureTest, FilesFromTheTopDownAreRead) {
  const Bytes pixels = {1, 2, 3, 4, 5, 6, 7, 8};
  ASSERT_TRUE(Save_Image(pixels.data(), 4, 2, 8, kName));
  Bytes file = ReadBytes(kName);
  PutU32(file.data() + 22, static_cast<std::uint32_t>(-2));
  WriteBytes(kName, file);
  EXPECT_EQ(Read(), pixels);
}

TEST_F(CPictureTest, EveryTruncatedFileIsRefused) {
  const Bytes pixels = {1, 2, 3, 4};
  ASSERT_TRUE(Save_Image(pixels.data(), 4, 1, 8, kName));
  const Bytes whole = ReadBytes(kName);
  for (std::size_t size = 0; size < whole.size(); ++size) {
    WriteBytes(kName, Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
    Read();
    ASSERT_EQ(error, QUORVEX_ERROR_FORMAT) << size << " bytes";
  }
}

// One wrong field each: offset, value of 32 bits, what the sentence says.
struct WrongField {
  std::size_t offset;
  std::uint32_t value;
  const char* says;
};

TEST_F(CPictureTest, WrongHeadersAreRefused) {
  const Bytes pixels = {1, 2, 3, 4};
  ASSERT_TRUE(Save_Image(pixels.data(), 4, 1, 8, kName));
  const Bytes whole = ReadBytes(kName);
  for (const WrongField& field :
       {WrongField{0, 0, "it is no BMP file"}, WrongField{10, 0xFFFFFFFFu, "ends too early"},
        WrongField{14, 12, "a header of 12 bytes"}, WrongField{18, 0, "out of range"},
        WrongField{18, 0x80000000u, "out of range"}, WrongField{22, 0x80000000u, "out of range"},
        WrongField{22, 32769, "out of range"}, WrongField{26, 4u << 16 | 1, "4 bits a pixel"},
        WrongField{30, 1, "compression"}, WrongField{46, 257, "a palette of 257 colours"},
        WrongField{46, 2, "pixel value 2 is outside its palette"}}) {
    Bytes file = whole;
    PutU32(file.data() + field.offset, field.value);
    WriteBytes(kName, file);
    Read();
    EXPECT_EQ(error, QUORVEX_ERROR_FORMAT) << field.offset;
    EXPECT_NE(std::string(quorvex_error_detail()).find(field.says), std::string::npos)
        << quorvex_error_detail();
  }
}

TEST_F(CPictureTest, FilesThatAreNotThereAreNamed) {
  quorvex_picture* picture = nullptr;
  EXPECT_EQ(quorvex_read_bmp("missing.bmp", &picture), QUORVEX_ERROR_FILE);
  EXPECT_EQ(std::string(quorvex_error_detail()).rfind("missing.bmp: ", 0), 0u);
  const unsigned char pixel[4] = {};
  const quorvex_image image = {pixel, 4, 1, 4};
  EXPECT_EQ(quorvex_write_bmp("missing/picture.bmp", &image), QUORVEX_ERROR_FILE);
}

TEST_F(CPictureTest, WrongArgumentsAreNamed) {
  const unsigned char pixels[8] = {};
  unsigned char grey[4] = {9, 9, 9, 9};
  quorvex_picture* picture = nullptr;
  quorvex_image image = {pixels, 4, 2, 4};
  EXPECT_EQ(quorvex_read_bmp(nullptr, &picture), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_read_bmp(kName, nullptr), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_write_bmp(nullptr, &image), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_write_bmp(kName, nullptr), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_picture_image(nullptr, &image), QUORVEX_ERROR_ARGUMENT);
  quorvex_picture_free(nullptr);
  image.stride = -3;
  EXPECT_EQ(quorvex_write_bmp(kName, &image), QUORVEX_ERROR_ARGUMENT);
  EXPECT_STREQ(quorvex_error_detail(),
               "image->stride: expected 4 bytes or more, or minus that, given -3");
  image.width = 0;
  EXPECT_EQ(quorvex_write_bmp(kName, &image), QUORVEX_ERROR_SIZE);
  EXPECT_STREQ(quorvex_error_detail(), "image: expected 1 x 1 pixels or more, given 0 x 2");
  EXPECT_FALSE(std::filesystem::exists(kName));

  quorvex_colour_image colour = {pixels, 1, 1, 3, 16};
  EXPECT_EQ(quorvex_convert_to_grey(&colour, grey), QUORVEX_ERROR_ARGUMENT);
  EXPECT_STREQ(quorvex_error_detail(), "image->bits_per_pixel: expected 24 or 32, given 16");
  colour.bits_per_pixel = 32;
  EXPECT_EQ(quorvex_convert_to_grey(&colour, grey), QUORVEX_ERROR_ARGUMENT);
  EXPECT_STREQ(quorvex_error_detail(),
               "image->stride: expected 4 bytes or more, or minus that, given 3");
  EXPECT_EQ(quorvex_convert_to_grey(nullptr, grey), QUORVEX_ERROR_ARGUMENT);
  colour.stride = 4;
  EXPECT_EQ(quorvex_convert_to_grey(&colour, nullptr), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(grey[0], 9);
}

}  // namespace
}  // namespace quorvex::tests
