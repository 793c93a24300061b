#include "tools/pictures/jpeg_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/support/encoded_pictures.h"
#include "tests/support/grey_pictures.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

class ReadJpeg : public testing::Test {
 protected:
  void SetUp() override {
    if (!ReadsJpeg()) GTEST_SKIP() << "built without libjpeg (Debian: libjpeg-dev)";
  }
};

JpegFields GreyRamp() {
  JpegFields fields{29, 21, 1, {}};
  for (int i = 0; i < 29 * 21; ++i) {
    fields.samples.push_back(static_cast<std::uint8_t>(40 + i / 29 * 5 + i % 29));
  }
  return fields;
}

std::string Refusal(const Bytes& bytes) {
  try {
    DecodeJpeg(bytes, "a.jpg");
    return "was read";
  } catch (const InputError& error) {
    return error.what();
  }
}

TEST_F(ReadJpeg, GivesGreyToALevel) {
  for (const bool isProgressive : {false, true}) {
    JpegFields fields = GreyRamp();
    fields.isProgressive = isProgressive;
    const Picture picture = DecodeJpeg(EncodeJpeg(fields), "a.jpg");
    ASSERT_EQ(picture.width, 29);
    ASSERT_EQ(picture.height, 21);
    EXPECT_EQ(picture.note, "");
    for (std::size_t i = 0; i < fields.samples.size(); ++i) {
      EXPECT_NEAR(picture.pixels[i], fields.samples[i], 1) << i;
    }
  }
}

// An even colour, which the compression keeps to a level or two.
TEST_F(ReadJpeg, ColourBecomesTheLibrarysGrey) {
  JpegFields fields{16, 16, 3, {}};
  for (int i = 0; i < 256; ++i) fields.samples.insert(fields.samples.end(), {200, 100, 20});
  const Picture picture = DecodeJpeg(EncodeJpeg(fields), "a.jpg");
  const int expected = LibraryGrey({20, 100, 200})[0];
  for (const std::uint8_t pixel : picture.pixels) EXPECT_NEAR(pixel, expected, 2);
}

TEST_F(ReadJpeg, DoesNotTurnThePictureAndSaysSo) {
  JpegFields fields = GreyRamp();
  fields.orientation = 6;
  const Picture picture = DecodeJpeg(EncodeJpeg(fields), "a.jpg");
  EXPECT_EQ(picture.width, 29);
  EXPECT_THAT(picture.note, HasSubstr("not turned as its orientation of 6 says"));
}

TEST_F(ReadJpeg, RefusesColoursForPrint) {
  const JpegFields fields{4, 4, 4, Bytes(64, 9)};
  EXPECT_THAT(Refusal(EncodeJpeg(fields)),
              HasSubstr("cannot read a.jpg: its colours are for print"));
}

TEST_F(ReadJpeg, RefusesFilesThatAreCutAnywhere) {
  const Bytes whole = EncodeJpeg(GreyRamp());
  for (std::size_t size = 3; size + 2 < whole.size(); size += 7) {
    const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_THAT(Refusal(cut), HasSubstr("cannot read a.jpg: ")) << size;
  }
}

TEST_F(ReadJpeg, RefusesPixelsThatWouldBeMadeUp) {
  Bytes bytes = EncodeJpeg(GreyRamp());
  const Bytes scan = {0xff, 0xda};
  const auto start = std::search(bytes.begin(), bytes.end(), scan.begin(), scan.end());
  ASSERT_LT(start, bytes.end() - 60);
  std::fill(start + 20, start + 40, 0x5a);
  EXPECT_THAT(Refusal(bytes), HasSubstr("Corrupt JPEG data"));
}

TEST_F(ReadJpeg, RefusesMoreThanAHundredScans) {
  JpegFields fields = GreyRamp();
  fields.scans = 100;
  EXPECT_EQ(Refusal(EncodeJpeg(fields)), "was read");
  fields.scans = 101;
  EXPECT_EQ(Refusal(EncodeJpeg(fields)), "cannot read a.jpg: it has more than 100 scans");
}

TEST_F(ReadJpeg, RefusesASizeThatTheFileCannotHold) {
  Bytes bytes = EncodeJpeg(GreyRamp());
  const Bytes frame = {0xff, 0xc0};
  const auto start = std::search(bytes.begin(), bytes.end(), frame.begin(), frame.end());
  ASSERT_LT(start, bytes.end() - 20);
  start[5] = start[7] = 0x7f;  // the high bytes of height and width
  EXPECT_THAT(Refusal(bytes), HasSubstr("32541 x 32533 pixels do not fit into"));
  start[5] = start[7] = 0xff;
  EXPECT_THAT(Refusal(bytes), HasSubstr("pixels is more than 32768 on a side"));
}

}  // namespace
}  // namespace quorvex::tests
