#include "tools/pictures/grey_pixels.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/support/bmp_bytes.h"
#include "tests/support/grey_pictures.h"
#include "tools/errors.h"
#include "tools/pictures/bmp_reader.h"
#include "tools/pictures/png_codec.h"

namespace quorvex::tests {

using namespace tools;

namespace {

// Every grey level once.
constexpr int kLevels = 256;

Bytes AllLevels(int channels) {
  Bytes samples;
  for (int level = 0; level < kLevels; ++level) {
    samples.insert(samples.end(), static_cast<std::size_t>(channels),
                   static_cast<std::uint8_t>(level));
  }
  return samples;
}

// With an opaque fourth channel.
Bytes AllLevelsOpaque() {
  Bytes samples = AllLevels(4);
  for (std::size_t i = 3; i < samples.size(); i += 4) {
    samples[i] = 255;
  }
  return samples;
}

Bytes ColourBmp(std::uint32_t bitsPerPixel, const Bytes& pixels) {
  BmpFields fields;
  fields.width = kLevels;
  fields.height = 1;
  fields.bitsPerPixel = bitsPerPixel;
  fields.pixels = pixels;
  return MakeBmp(fields);
}

TEST(GreyPixels, TheSamePictureIsTheSameInEveryFile) {
  const Bytes expected = AllLevels(1);
  EXPECT_EQ(DecodePng(EncodeWithLibpng(kLevels, 1, PNG_FORMAT_GRAY, AllLevels(1)), "grey").pixels,
            expected);
  EXPECT_EQ(DecodePng(EncodeWithLibpng(kLevels, 1, PNG_FORMAT_RGB, AllLevels(3)), "RGB").pixels,
            expected);
  EXPECT_EQ(
      DecodePng(EncodeWithLibpng(kLevels, 1, PNG_FORMAT_RGBA, AllLevelsOpaque()), "RGBA").pixels,
      expected);
  EXPECT_EQ(DecodeBmp(ColourBmp(24, AllLevels(3)), "24 bits").pixels, expected);
  EXPECT_EQ(DecodeBmp(ColourBmp(32, AllLevelsOpaque()), "32 bits").pixels, expected);
}

// The conversion lowers some neutral pixels, or the test above would show nothing.
TEST(GreyPixels, OneColouredPixelSendsThePictureThroughTheConversion) {
  Bytes samples = AllLevels(3);
  samples.back() = 0;
  const Bytes converted = LibraryGrey(samples);
  const Bytes levels = AllLevels(1);
  EXPECT_NE(Bytes(converted.begin(), converted.end() - 1), Bytes(levels.begin(), levels.end() - 1));
  EXPECT_EQ(GreyPixels(samples, kLevels, 1, 24, "a"), converted);
}

TEST(GreyPixels, TheFourthByteIsIgnored) {
  Bytes samples = {5, 5, 5, 0, 6, 6, 6, 200};
  EXPECT_EQ(GreyPixels(samples, 2, 1, 32, "a"), Bytes({5, 6}));
}

TEST(AllocatePixels, SaysHowMuchWasAskedFor) {
  EXPECT_EQ(AllocatePixels(3, "a.bmp"), Bytes({0, 0, 0}));
  const std::size_t tooMany = std::numeric_limits<std::size_t>::max();
  try {
    AllocatePixels(tooMany, "a.bmp");
    ADD_FAILURE() << "was allocated";
  } catch (const InputError& error) {
    EXPECT_EQ(std::string(error.what()), "cannot read a.bmp: out of memory, " +
                                             std::to_string(tooMany) + " bytes were asked for");
  }
}

}  // namespace
}  // namespace quorvex::tests
