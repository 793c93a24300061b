// Broken picture files: each is refused in one sentence that names the file and the reason.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

#include "tests/support/bmp_bytes.h"
#include "tests/support/temporary_folder.h"
#include "tools/errors.h"
#include "tools/pictures/picture_file.h"
#include "tools/pictures/picture_limits.h"

namespace quorvex::tests {

using namespace tools;

namespace {

void ExpectRefused(const std::string& path, const std::string& fragment) {
  try {
    ReadPictureFile(path);
    ADD_FAILURE() << "was read; expected: " << fragment;
  } catch (const InputError& error) {
    const std::string message = error.what();
    EXPECT_EQ(message.find("cannot read " + path + ": "), 0u) << message;
    EXPECT_NE(message.find(fragment), std::string::npos) << message;
    EXPECT_EQ(message.find('\n'), std::string::npos) << message;
  }
}

struct BrokenBmp {
  const char* name;
  std::function<void(BmpFields&)> damage;
  const char* fragment;
};

const BrokenBmp kBrokenBmps[] = {
    {"ZeroWidth", [](BmpFields& f) { f.width = 0; }, "0 x 2 pixels is out of range"},
    {"ZeroHeight", [](BmpFields& f) { f.height = 0; }, "3 x 0 pixels is out of range"},
    {"NegativeWidth", [](BmpFields& f) { f.width = 0xffffffff; }, "-1 x 2 pixels is out of range"},
    {"LowestHeight", [](BmpFields& f) { f.height = 0x80000000; }, "x -2147483648 pixels is out"},
    {"GiantWidth", [](BmpFields& f) { f.width = 0x7fffffff; }, "2147483647 x 2 pixels is out"},
    {"JustTooWide", [](BmpFields& f) { f.width = 32769; }, "32769 x 2 pixels is out of range"},
    {"LargerThanFile", [](BmpFields& f) { f.width = f.height = 32768; },
     "32768 x 32768 pixels of 8 bits need 1073742902 bytes, but the file has 1086"},
    {"OneBitPerPixel", [](BmpFields& f) { f.bitsPerPixel = 1; }, "1 bits per pixel are not"},
    {"SixteenBits", [](BmpFields& f) { f.bitsPerPixel = 16; }, "16 bits per pixel are not"},
    {"NoBits", [](BmpFields& f) { f.bitsPerPixel = 0; }, "0 bits per pixel are not supported"},
    {"RunLengths", [](BmpFields& f) { f.compression = 1; }, "compression 1 is not supported"},
    {"MasksAtEightBits", [](BmpFields& f) { f.compression = 3; },
     "compression 3 is not supported at 8 bits per pixel"},
    {"OddHeader", [](BmpFields& f) { f.headerBytes = 64; }, "header of 64 bytes is not supported"},
    {"PaletteMissing", [](BmpFields& f) { f.palette.clear(); },
     "palette of 256 colours is missing"},
    {"PaletteCutOff", [](BmpFields& f) { f.palette.resize(1023); }, "is missing or cut off"},
    {"PaletteGiant", [](BmpFields& f) { f.paletteColors = 0xffffffff; },
     "palette of 4294967295 colours is out of range"},
    {"OutsidePalette",
     [](BmpFields& f) {
       f.paletteColors = 5;
       f.palette = GreyPalette(5, 4);
     },
     "pixel value 5 is outside its palette of 5 colours"},
    {"LastPaddingMissing", [](BmpFields& f) { f.pixels.pop_back(); }, "need 1086 bytes"},
    {"WrongMasks",
     [](BmpFields& f) {
       f.bitsPerPixel = 32;
       f.compression = 3;
       f.masks = Bytes(12, 0xff);
     },
     "colour masks are not supported"},
};

class HostileBmp : public testing::TestWithParam<BrokenBmp> {};

TEST_P(HostileBmp, IsRefusedWithItsReason) {
  const TemporaryFolder folder;
  BmpFields fields = SmallGreyBmp();
  GetParam().damage(fields);
  WriteBytes(folder.Path("broken.bmp"), MakeBmp(fields));
  ExpectRefused(folder.Path("broken.bmp"), GetParam().fragment);
}

INSTANTIATE_TEST_SUITE_P(Files, HostileBmp, testing::ValuesIn(kBrokenBmps),
                         [](const auto& file) { return std::string(file.param.name); });

TEST(HostileFile, BmpCutAtEveryByteOfItsHeaderAndPalette) {
  const TemporaryFolder folder;
  const Bytes whole = MakeBmp(SmallGreyBmp());
  for (std::size_t size = 2; size < whole.size(); size += size < 60 ? 1 : 97) {
    WriteBytes(folder.Path("cut.bmp"), Bytes(whole.begin(), whole.begin() + size));
    EXPECT_THROW(ReadPictureFile(folder.Path("cut.bmp")), InputError) << size;
  }
}

TEST(HostileFile, PixelOffsetBeyondTheFileAndInsideTheHeader) {
  const TemporaryFolder folder;
  Bytes bytes = MakeBmp(SmallGreyBmp());
  for (std::size_t i = 10; i < 14; ++i) {
    bytes[i] = 0xff;
  }
  WriteBytes(folder.Path("a.bmp"), bytes);
  ExpectRefused(folder.Path("a.bmp"), "need 4294967303 bytes, but the file has 1086");
  for (std::size_t i = 10; i < 14; ++i) {
    bytes[i] = 0;
  }
  WriteBytes(folder.Path("a.bmp"), bytes);
  ExpectRefused(folder.Path("a.bmp"), "pixels start at byte 0, inside the header");
}

TEST(HostileFile, ThingsThatAreNoPictures) {
  const TemporaryFolder folder;
  ExpectRefused(folder.Path("absent.bmp"), "No such file or directory");
  std::filesystem::create_directory(folder.Path("folder.bmp"));
  ExpectRefused(folder.Path("folder.bmp"), "it is a directory");
  WriteBytes(folder.Path("empty.bmp"), {});
  ExpectRefused(folder.Path("empty.bmp"), "the file is empty");
  WriteBytes(folder.Path("text.bmp"), {'h', 'e', 'l', 'l', 'o'});
  ExpectRefused(folder.Path("text.bmp"), "none of the files that are read: BMP, PNG, PGM");
  WriteBytes(folder.Path("long.bmp"), {'B', 'M'});
  std::filesystem::resize_file(folder.Path("long.bmp"), kMaxPictureFileBytes + 1);
  ExpectRefused(folder.Path("long.bmp"), "1073741825 bytes are more than the 1073741824");
}

TEST(HostileFile, BrokenPngs) {
  const TemporaryFolder folder;
  Picture picture;
  picture.width = 16;
  picture.height = 16;
  picture.pixels = Bytes(256, 77);
  const Bytes whole = EncodePicture(picture, "a.png");
  const std::string path = folder.Path("a.png");
  for (const std::size_t size :
       {std::size_t{8}, std::size_t{20}, std::size_t{33}, whole.size() - 20}) {
    WriteBytes(path, Bytes(whole.begin(), whole.begin() + size));
    EXPECT_THROW(ReadPictureFile(path), InputError) << size;
  }
  Bytes damaged = whole;
  const std::string type = "IDAT";
  const auto pixels = std::search(damaged.begin(), damaged.end(), type.begin(), type.end());
  ASSERT_LT(pixels - damaged.begin(), static_cast<std::ptrdiff_t>(damaged.size()) - 20);
  pixels[8] ^= 0xff;  // inside the compressed pixels
  WriteBytes(path, damaged);
  ExpectRefused(path, "");
}

// The signature and the first chunk of a grey PNG.
Bytes PngOf(const Bytes& sides, const Bytes& checksum) {
  return Concatenated(
      {{0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n', 0, 0, 0, 13, 'I', 'H', 'D', 'R'},
       sides,
       {8, 0, 0, 0, 0},
       checksum});
}

TEST(HostileFile, PngThatPromisesMoreThanItHolds) {
  const TemporaryFolder folder;
  const Bytes noPixels = {0, 0, 0, 0, 'I', 'D', 'A', 'T', 0x35, 0xaf, 0x06, 0x1e};
  WriteBytes(
      folder.Path("a.png"),
      Concatenated({PngOf({0, 0, 0x80, 0, 0, 0, 0x80, 0}, {0xe1, 0x17, 0xfc, 0xa3}), noPixels}));
  ExpectRefused(folder.Path("a.png"), "32768 x 32768 pixels do not fit into");
  // At a bit a pixel they might.
  WriteBytes(folder.Path("a.png"),
             Concatenated({PngOf({0, 0, 1, 44, 0, 0, 1, 44}, {0x5c, 0x16, 0xd1, 0xa9}), noPixels}));
  ExpectRefused(folder.Path("a.png"), "300 x 300 pixels do not fit into 45 bytes");
}

TEST(HostileFile, PngWithAChunkLongerThanTheFile) {
  const TemporaryFolder folder;
  WriteBytes(folder.Path("a.png"),
             Concatenated({PngOf({0, 0, 1, 44, 0, 0, 1, 44}, {0x5c, 0x16, 0xd1, 0xa9}),
                           {0, 0x7a, 0, 0, 't', 'E', 'X', 't', 'a', 0, 'b', 'c'}}));
  ExpectRefused(folder.Path("a.png"), "a chunk of 7995392 bytes reaches beyond its end");
}

}  // namespace
}  // namespace quorvex::tests
