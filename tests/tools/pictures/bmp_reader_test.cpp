#include "tools/pictures/bmp_reader.h"

#include <gtest/gtest.h>

#include "tests/support/bmp_bytes.h"
#include "tests/support/grey_pictures.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(ReadBmp, BottomUpRowsComeOutTopFirst) {
  EXPECT_EQ(DecodeBmp(MakeBmp(SmallGreyBmp()), "a.bmp").pixels, Bytes({1, 2, 3, 4, 5, 6}));
}

TEST(ReadBmp, NegativeHeightMeansTopDown) {
  BmpFields fields = SmallGreyBmp();
  fields.height = static_cast<std::uint32_t>(-2);
  EXPECT_EQ(DecodeBmp(MakeBmp(fields), "a.bmp").pixels, Bytes({4, 5, 6, 1, 2, 3}));
}

TEST(ReadBmp, PixelsAreFoundByTheOffsetField) {
  BmpFields fields = SmallGreyBmp();
  fields.gap = Bytes(13, 99);
  EXPECT_EQ(DecodeBmp(MakeBmp(fields), "a.bmp").pixels, Bytes({1, 2, 3, 4, 5, 6}));
}

TEST(ReadBmp, LongHeadersAreRead) {
  for (const std::uint32_t headerBytes : {108u, 124u}) {
    BmpFields fields = SmallGreyBmp();
    fields.headerBytes = headerBytes;
    EXPECT_EQ(DecodeBmp(MakeBmp(fields), "a.bmp").pixels, Bytes({1, 2, 3, 4, 5, 6}));
  }
}

TEST(ReadBmp, CoreHeaderHasThreeByteColours) {
  BmpFields fields = SmallGreyBmp();
  fields.headerBytes = 12;
  fields.palette = GreyPalette(256, 3);
  EXPECT_EQ(DecodeBmp(MakeBmp(fields), "a.bmp").pixels, Bytes({1, 2, 3, 4, 5, 6}));
}

TEST(ReadBmp, NeutralPaletteEntriesKeepTheirValue) {
  BmpFields fields = SmallGreyBmp();
  fields.width = 256;
  fields.height = 1;
  fields.pixels.clear();
  for (int i = 0; i < 256; ++i) {
    fields.pixels.push_back(static_cast<std::uint8_t>(i));
  }
  EXPECT_EQ(DecodeBmp(MakeBmp(fields), "a.bmp").pixels, fields.pixels);
}

TEST(ReadBmp, ColourRowsLoseTheirPadding) {
  BmpFields fields;
  fields.width = 1;
  fields.bitsPerPixel = 24;
  fields.pixels = {10, 20, 230, 0, 200, 30, 40, 0};
  EXPECT_EQ(DecodeBmp(MakeBmp(fields), "a.bmp").pixels, LibraryGrey({200, 30, 40, 10, 20, 230}));
}

TEST(ReadBmp, ThirtyTwoBitsAreReadWithAndWithoutMasks) {
  BmpFields fields;
  fields.width = 2;
  fields.height = 1;
  fields.bitsPerPixel = 32;
  fields.pixels = {10, 20, 230, 7, 200, 30, 40, 9};
  const Bytes expected = LibraryGrey({10, 20, 230, 200, 30, 40});
  EXPECT_EQ(DecodeBmp(MakeBmp(fields), "a.bmp").pixels, expected);

  fields.compression = 3;
  Append(fields.masks, 0x00ff0000, 4);
  Append(fields.masks, 0x0000ff00, 4);
  Append(fields.masks, 0x000000ff, 4);
  EXPECT_EQ(DecodeBmp(MakeBmp(fields), "a.bmp").pixels, expected);
  fields.headerBytes = 124;
  EXPECT_EQ(DecodeBmp(MakeBmp(fields), "a.bmp").pixels, expected);
}

TEST(ReadBmp, PaletteColoursBecomeGrey) {
  BmpFields fields = SmallGreyBmp();
  fields.paletteColors = 7;
  fields.palette = GreyPalette(7, 4);
  fields.palette[4] = 10;  // entry 1: blue, green, red
  fields.palette[5] = 200;
  fields.palette[6] = 90;
  const Bytes pixels = DecodeBmp(MakeBmp(fields), "a.bmp").pixels;
  EXPECT_EQ(Bytes(pixels.begin(), pixels.begin() + 2), LibraryGrey({10, 200, 90, 2, 2, 2}));
}

TEST(ReadBmp, AColourThatNoPixelUsesDoesNotMakeThePictureColoured) {
  BmpFields fields = SmallGreyBmp();
  fields.palette[4 * 200] = 99;
  EXPECT_EQ(DecodeBmp(MakeBmp(fields), "a.bmp").pixels, Bytes({1, 2, 3, 4, 5, 6}));
}

}  // namespace
}  // namespace quorvex::tests
