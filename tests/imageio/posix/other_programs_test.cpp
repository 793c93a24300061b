// BMP files exchanged with ImageMagick; skipped where it is not installed.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

#include "tests/support/bytes.h"
#include "tests/support/read_result.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr char kName[] = "image.bmp";
constexpr int kWidth = 8;
constexpr int kHeight = 5;

// What a shell command prints.
std::string OutputOf(const std::string& command) {
  std::string output;
  FILE* const pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) {
    return output;
  }
  std::array<char, 4096> buffer;
  for (std::size_t got; (got = fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
    output.append(buffer.data(), got);
  }
  pclose(pipe);
  return output;
}

// The name of ImageMagick's converter, empty where there is none. Other programs of the name
// "convert" are told from it by what they say of themselves.
std::string FindConverter() {
  for (const std::string name : {"magick", "convert-im6.q16", "convert", "/usr/bin/convert"}) {
    if (OutputOf(name + " -version 2>/dev/null").rfind("Version: ImageMagick", 0) == 0) {
      return name;
    }
  }
  return "";
}

// A picture as this test holds it: red, green, blue, the top row first, no padding. All colours
// differ, so that a palette needs 8 bits.
Bytes PictureFromTheTop() {
  Bytes picture;
  for (int i = 0; i < kWidth * kHeight; ++i) {
    for (const int level : {6 * i, 255 - 5 * i, 3 * i + 1}) {
      picture.push_back(static_cast<unsigned char>(level));
    }
  }
  return picture;
}

// The same picture as a BMP file stores it: blue, green, red, the bottom row first. Eight pixels a
// row need no padding.
Bytes StoredRows(int bitsPerPixel, bool isTopDown = false) {
  const Bytes picture = PictureFromTheTop();
  Bytes rows;
  for (int i = 0; i < kHeight; ++i) {
    const int y = isTopDown ? i : kHeight - 1 - i;
    for (int x = 0; x < kWidth; ++x) {
      const std::size_t at = static_cast<std::size_t>(3 * (y * kWidth + x));
      rows.insert(rows.end(), {picture[at + 2], picture[at + 1], picture[at]});
      if (bitsPerPixel == 32) {
        rows.push_back(255);
      }
    }
  }
  return rows;
}

class OtherProgramsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    converter_ = FindConverter();
    if (converter_.empty()) {
      GTEST_SKIP() << "ImageMagick is not installed (Debian: imagemagick)";
    }
  }

  // The file's picture as ImageMagick sees it, in the form of PictureFromTheTop.
  Bytes PictureSeen() const {
    EXPECT_EQ(OutputOf(converter_ + " " + kName + " -format '%w %h' info:-"),
              std::to_string(kWidth) + " " + std::to_string(kHeight));
    OutputOf(converter_ + " " + kName + " -alpha off -colorspace sRGB -depth 8 rgb:seen.rgb");
    return ReadBytes("seen.rgb");
  }

  // Lets ImageMagick write the picture.
  void WritePicture(const std::string& options, const std::string& format) const {
    WriteBytes("picture.rgb", PictureFromTheTop());
    OutputOf(converter_ + " -size " + std::to_string(kWidth) + "x" + std::to_string(kHeight) +
             " -depth 8 rgb:picture.rgb " + options + " " + format + ":" + kName);
  }

 private:
  TemporaryDirectory directory_;
  std::string converter_;
};

TEST_F(OtherProgramsTest, SavedGreyIsSeenUpsideUp) {
  Bytes pixels;
  for (int i = 0; i < kWidth * kHeight; ++i) {
    pixels.push_back(static_cast<unsigned char>(6 * i));
  }
  ASSERT_TRUE(Save_Image(pixels.data(), kWidth, kHeight, 8, kName));
  Bytes expected;  // buffer row 0 is the bottom row
  for (int y = kHeight - 1; y >= 0; --y) {
    for (int x = 0; x < kWidth; ++x) {
      expected.insert(expected.end(), 3, pixels[static_cast<std::size_t>(y * kWidth + x)]);
    }
  }
  EXPECT_EQ(PictureSeen(), expected);
}

TEST_F(OtherProgramsTest, SavedColourIsSeenUpsideUp) {
  for (const int bits : {24, 32}) {
    ASSERT_TRUE(Save_Image(StoredRows(bits).data(), kWidth, kHeight, bits, kName));
    EXPECT_EQ(PictureSeen(), PictureFromTheTop()) << bits;
  }
}

// ImageMagick reads files with the top row first but writes none, so one of its own is turned over.
TEST_F(OtherProgramsTest, TopDownRowsAreReadAsStoredUnderANegativeHeight) {
  WritePicture("-type TrueColor", "bmp3");
  Bytes file = ReadBytes(kName);
  ASSERT_EQ(file.size(), 14u + 40u + 3 * kWidth * kHeight);
  const Bytes rows = StoredRows(24, true);
  file = Concatenated({Slice(file, 0, 22), U32(static_cast<std::uint32_t>(-kHeight)),
                       Slice(file, 26, 14 + 40), rows});
  WriteBytes(kName, file);
  ASSERT_EQ(PictureSeen(), PictureFromTheTop());

  const ReadResult result = Read(kName);
  ASSERT_TRUE(result.isRead);
  EXPECT_EQ(result.width, kWidth);
  EXPECT_EQ(result.height, -kHeight);
  EXPECT_EQ(result.bitsPerPixel, 24);
  EXPECT_EQ(Bytes(result.pixels, result.pixels + rows.size()), rows);
}

struct WriterCase {
  const char* name;
  const char* options;
  const char* format;
  std::uint32_t headerSize;      // as written, in bytes
  std::uint32_t storedOffset;    // of the pixels in the file, as the writer states it
  std::uint32_t returnedOffset;  // of the pointer that Read_Image returns
  int bits;
};

void PrintTo(const WriterCase& writerCase, std::ostream* stream) { *stream << writerCase.name; }

// Compression is not looked at. After a header of 108 or 124 bytes the palette is taken for the
// pixels.
const WriterCase kCases[] = {
    {"Palette", "-type Palette -compress none", "bmp3", 40, 14 + 40 + 1024, 14 + 40 + 1024, 8},
    {"RunLengths", "-type Palette -compress RLE", "bmp3", 40, 14 + 40 + 1024, 14 + 40 + 1024, 8},
    {"TwoColours", "-colors 2 -type Palette -compress none", "bmp3", 40, 14 + 40 + 8, 14 + 40 + 8,
     1},
    {"SixteenColours", "-colors 16 -type Palette -compress none", "bmp3", 40, 14 + 40 + 64,
     14 + 40 + 64, 4},
    {"Colour24", "-type TrueColor", "bmp3", 40, 14 + 40, 14 + 40, 24},
    {"Colour32", "-alpha set -define bmp3:alpha=true", "bmp3", 40, 14 + 40, 14 + 40, 32},
    {"CorePalette", "-type Palette", "bmp2", 12, 14 + 12 + 768, 14 + 12 + 768, 8},
    {"CoreColour24", "-type TrueColor", "bmp2", 12, 14 + 12, 14 + 12, 24},
    {"Header108Colour24", "-intent Undefined -type TrueColor", "bmp", 108, 14 + 108, 14 + 108, 24},
    {"Header108Palette", "-intent Undefined -type Palette -compress none", "bmp", 108,
     14 + 108 + 1024, 14 + 108, 8},
    {"Header124Colour24", "-intent Perceptual -type TrueColor", "bmp", 124, 14 + 124, 14 + 124, 24},
    {"Header124Colour32", "-intent Perceptual -alpha set -type TrueColorAlpha", "bmp", 124,
     14 + 124, 14 + 124, 32},
    {"Header124Palette", "-intent Perceptual -type Palette -compress none", "bmp", 124,
     14 + 124 + 1024, 14 + 124, 8},
};

class OtherWriterTest : public OtherProgramsTest,
                        public ::testing::WithParamInterface<WriterCase> {};

TEST_P(OtherWriterTest, IsReadAsItStands) {
  const WriterCase& writerCase = GetParam();
  WritePicture(writerCase.options, writerCase.format);
  const Bytes file = ReadBytes(kName);
  // The cases are about these files; another version of the writer may choose others.
  ASSERT_EQ(Slice(file, 14, 18), U32(writerCase.headerSize));
  ASSERT_EQ(Slice(file, 10, 14), U32(writerCase.storedOffset));

  const ReadResult result = Read(kName);
  ASSERT_TRUE(result.isRead);
  EXPECT_EQ(result.width, kWidth);
  EXPECT_EQ(result.height, kHeight);
  EXPECT_EQ(result.bitsPerPixel, writerCase.bits);
  const Bytes stored = Slice(file, writerCase.returnedOffset, file.size());
  ASSERT_FALSE(stored.empty());
  EXPECT_EQ(Bytes(result.pixels, result.pixels + stored.size()), stored);
  if (writerCase.bits >= 24) {
    const Bytes rows = StoredRows(writerCase.bits);
    EXPECT_EQ(Bytes(result.pixels, result.pixels + rows.size()), rows);
  }
}

INSTANTIATE_TEST_SUITE_P(Files, OtherWriterTest, ::testing::ValuesIn(kCases),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace quorvex::tests
