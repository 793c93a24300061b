#include "tools/pictures/tiff_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

#include "tests/support/encoded_pictures.h"
#include "tests/support/grey_pictures.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ReadTiff : public testing::Test {
 protected:
  void SetUp() override {
    if (!ReadsTiff()) GTEST_SKIP() << "built without libtiff (Debian: libtiff-dev)";
  }

  Bytes Encode(const TiffFields& fields) const { return EncodeTiff(fields, folder_.Path("a")); }

  Picture Decode(const TiffFields& fields, std::optional<GreyLevels> levels = std::nullopt) const {
    return DecodeTiff(Encode(fields), "a.tif", levels);
  }

  static std::string Refusal(const Bytes& bytes) {
    try {
      DecodeTiff(bytes, "a.tif", std::nullopt);
      return "was read";
    } catch (const InputError& error) {
      return error.what();
    }
  }

 private:
  TemporaryFolder folder_;
};

TiffFields Grey(std::uint32_t width, std::uint32_t height) {
  TiffFields fields;
  fields.width = width;
  fields.height = height;
  for (std::uint32_t i = 0; i < width * height; ++i) {
    fields.samples.push_back(static_cast<std::uint8_t>(i * 7));
  }
  return fields;
}

TiffFields Deep(const std::vector<std::uint16_t>& values) {
  TiffFields fields;
  fields.width = static_cast<std::uint32_t>(values.size());
  fields.height = 1;
  fields.bits = 16;
  const std::uint8_t* bytes = reinterpret_cast<const std::uint8_t*>(values.data());
  fields.samples.assign(bytes, bytes + 2 * values.size());
  return fields;
}

TEST_F(ReadTiff, KeepsGreyWhateverTheCompression) {
  for (const int compression : {1, 5, 32773}) {
    TiffFields fields = Grey(13, 7);
    fields.compression = static_cast<std::uint16_t>(compression);
    const Picture picture = Decode(fields);
    EXPECT_EQ(picture.width, 13);
    EXPECT_EQ(picture.height, 7);
    EXPECT_EQ(picture.bitsPerSample, 8);
    EXPECT_EQ(picture.pixels, fields.samples) << compression;
  }
}

TEST_F(ReadTiff, TurnsWhiteIsZeroRound) {
  TiffFields fields = Grey(3, 1);
  fields.photometric = 0;
  EXPECT_THAT(Decode(fields).pixels, ElementsAre(255, 248, 241));
}

TEST_F(ReadTiff, ScalesSixteenBits) {
  const TiffFields fields = Deep({0, 128, 129, 257, 4095, 65535});
  const Picture picture = Decode(fields);
  EXPECT_EQ(picture.bitsPerSample, 16);
  EXPECT_THAT(picture.pixels, ElementsAre(0, 0, 1, 1, 16, 255));
  EXPECT_THAT(Decode(fields, GreyLevels{128, 4095}).pixels, ElementsAre(0, 0, 0, 8, 255, 255));
}

TEST_F(ReadTiff, ColourBecomesTheLibrarysGreyWithoutItsFourthChannel) {
  TiffFields fields;
  fields.width = 2;
  fields.height = 1;
  fields.channels = 4;
  fields.photometric = 2;
  fields.samples = {230, 20, 10, 3, 40, 30, 200, 4};
  EXPECT_EQ(Decode(fields).pixels, LibraryGrey({10, 20, 230, 200, 30, 40}));
}

TEST_F(ReadTiff, LeavesPreviewsOut) {
  TiffFields fields = Grey(4, 4);
  fields.previews = 2;
  EXPECT_EQ(Decode(fields).pixels, fields.samples);
}

TEST_F(ReadTiff, DoesNotTurnThePictureAndSaysSo) {
  TiffFields fields = Grey(5, 2);
  fields.orientation = 8;
  const Picture picture = Decode(fields);
  EXPECT_EQ(picture.width, 5);
  EXPECT_EQ(picture.pixels, fields.samples);
  EXPECT_THAT(picture.note, HasSubstr("not turned as its orientation of 8 says"));
}

TEST_F(ReadTiff, NamesWhatItDoesNotRead) {
  const std::pair<std::function<void(TiffFields&)>, const char*> kinds[] = {
      {[](TiffFields& f) { f.isTiled = true; }, "it is cut into tiles"},
      {[](TiffFields& f) { f.pages = 2; }, "it holds several pictures"},
      {[](TiffFields& f) { f.photometric = 5, f.channels = 4; }, "colours for print (CMYK)"},
      {[](TiffFields& f) { f.photometric = 6, f.channels = 3; }, "YCbCr colours"},
      {[](TiffFields& f) { f.bits = 32, f.sampleFormat = 3; }, "are floating-point numbers"},
      {[](TiffFields& f) { f.bits = 16, f.sampleFormat = 2; }, "are numbers with a sign"},
      {[](TiffFields& f) { f.bits = 1; }, "1 bits a sample; 8 and 16 are read"},
      {[](TiffFields& f) { f.bits = 32; }, "32 bits a sample"},
      {[](TiffFields& f) { f.photometric = 2, f.channels = 3, f.hasPlanes = true; },
       "planes of their own"},
      {[](TiffFields& f) { f.photometric = 2; }, "1 channels make no colour"},
      {[](TiffFields& f) { f.pages = 0, f.previews = 1; }, "nothing but previews"}};
  for (const auto& [change, fragment] : kinds) {
    TiffFields fields = Grey(8, 8);
    change(fields);
    const std::string refusal = Refusal(Encode(fields));
    EXPECT_THAT(refusal, HasSubstr("cannot read a.tif: "));
    EXPECT_THAT(refusal, HasSubstr(fragment));
  }
}

// Rows of a few pixels would take gigabytes.
TEST_F(ReadTiff, RefusesMoreThanSixteenChannels) {
  TiffFields fields = Grey(8, 8);
  fields.channels = 16;
  EXPECT_EQ(Refusal(Encode(fields)), "was read");
  fields.channels = 17;
  EXPECT_EQ(Refusal(Encode(fields)), "cannot read a.tif: 17 channels are more than 16");
}

TEST_F(ReadTiff, RefusesFilesThatAreCutAnywhere) {
  const Bytes whole = Encode(Grey(40, 30));
  for (std::size_t size = 4; size < whole.size(); size += 11) {
    const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_THAT(Refusal(cut), HasSubstr("cannot read a.tif: ")) << size;
  }
}

// No warning of libtiff may reach standard error, either.
TEST_F(ReadTiff, BearsDamageAtEveryByte) {
  const Bytes whole = Encode(Grey(9, 5));
  testing::internal::CaptureStderr();
  int refused = 0;
  for (std::size_t i = 0; i < whole.size(); ++i) {
    Bytes damaged = whole;
    damaged[i] ^= 0xff;
    refused += Refusal(damaged) == "was read" ? 0 : 1;
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_GT(refused, 20);
}

// libtiff warns of damage in JPEG data and makes up the pixels behind it.
TEST_F(ReadTiff, RefusesDamagedJpegData) {
  if (!WritesTiffOfJpeg()) GTEST_SKIP() << "libtiff was built without JPEG";
  TiffFields fields = Grey(64, 64);
  fields.compression = 7;
  const Bytes whole = Encode(fields);
  const Picture picture = DecodeTiff(whole, "a.tif", std::nullopt);
  for (std::size_t i = 0; i < fields.samples.size(); ++i) {
    ASSERT_NEAR(picture.pixels[i], fields.samples[i], 60) << i;
  }
  const Bytes startOfScan = {0xff, 0xda};
  const auto scan = std::search(whole.begin(), whole.end(), startOfScan.begin(), startOfScan.end());
  ASSERT_GT(whole.end() - scan, 200);
  for (const int at : {60, 100}) {
    Bytes damaged = whole;
    std::fill_n(damaged.begin() + (scan - whole.begin()) + at, 40, std::uint8_t{0x55});
    EXPECT_THAT(Refusal(damaged), HasSubstr("cannot read a.tif: Corrupt JPEG data")) << at;
  }
}

// libtiff does not write it: the directory's field, in this machine's order, is changed.
TEST_F(ReadTiff, RefusesTheOldKindOfJpeg) {
  Bytes bytes = Encode(Grey(8, 8));
  const Bytes field = {3, 1, 3, 0, 1, 0, 0, 0, 1, 0};
  const auto at = std::search(bytes.begin(), bytes.end(), field.begin(), field.end());
  ASSERT_NE(at, bytes.end());
  *(at + 8) = 6;
  EXPECT_THAT(Refusal(bytes), HasSubstr("the old kind of JPEG; save it in another one"));
}

// libtiff says on several lines that 8 inks are not one channel; the field of the orientation is
// made that of the inks.
TEST_F(ReadTiff, RefusesInOneLine) {
  TiffFields fields = Grey(8, 8);
  fields.orientation = 8;
  Bytes bytes = Encode(fields);
  const Bytes field = {0x12, 1, 3, 0, 1, 0, 0, 0, 8, 0};
  const auto at = std::search(bytes.begin(), bytes.end(), field.begin(), field.end());
  ASSERT_NE(at, bytes.end());
  *at = 0x4e;
  const std::string refusal = Refusal(bytes);
  EXPECT_THAT(refusal, HasSubstr("NumberOfInks"));
  EXPECT_EQ(refusal.find('\n'), std::string::npos) << refusal;
  EXPECT_EQ(refusal.find("  "), std::string::npos) << refusal;
}

TEST_F(ReadTiff, RefusesASizeThatTheFileCannotHold) {
  EXPECT_THAT(Refusal(Encode(Grey(40000, 1))), HasSubstr("40000 x 1 pixels is out of range"));
  // Width and height stand in the directory as numbers of 32 bits, in this machine's order.
  Bytes bytes = Encode(Grey(19, 23));
  int changed = 0;
  for (std::size_t i = 0; i + 12 <= bytes.size(); ++i) {
    const bool isSide = (bytes[i] == 0 || bytes[i] == 1) && bytes[i + 1] == 1 &&
                        bytes[i + 3] == 0 && bytes[i + 4] == 1 &&
                        (bytes[i + 8] == 19 || bytes[i + 8] == 23);
    if (isSide) {
      bytes[i + 9] = 0x7f;
      ++changed;
    }
  }
  ASSERT_EQ(changed, 2);
  EXPECT_THAT(Refusal(bytes), HasSubstr("32531 x 32535 pixels do not fit into"));
}

// Pixels that are not packed take a byte each.
TEST_F(ReadTiff, RefusesMoreRowsThanTheFileHolds) {
  Bytes bytes = Encode(Grey(19, 23));
  const Bytes height = {1, 1, 3, 0, 1, 0, 0, 0, 23, 0};
  const auto at = std::search(bytes.begin(), bytes.end(), height.begin(), height.end());
  ASSERT_NE(at, bytes.end());
  *(at + 8) = 99;
  EXPECT_THAT(Refusal(bytes), HasSubstr("19 x 99 pixels do not fit into"));
}

}  // namespace
}  // namespace quorvex::tests
