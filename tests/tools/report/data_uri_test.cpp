#include "tools/report/data_uri.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/test_files.h"
#include "tools/pictures/jpeg_writer.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::StartsWith;

std::string Encoded(const std::string& text) {
  return Base64(std::vector<std::uint8_t>(text.begin(), text.end()));
}

// What no picture format makes small.
Picture Noise(int width, int height) {
  Picture picture = FlatPicture(width, height, 0);
  std::uint32_t state = 12345;
  for (std::uint8_t& level : picture.pixels) {
    state = state * 1664525u + 1013904223u;
    level = static_cast<std::uint8_t>(state >> 24);
  }
  return picture;
}

// The examples of RFC 4648.
TEST(Base64, EndsInAsManySignsAsBytesAreMissing) {
  EXPECT_EQ(Encoded(""), "");
  EXPECT_EQ(Encoded("f"), "Zg==");
  EXPECT_EQ(Encoded("fo"), "Zm8=");
  EXPECT_EQ(Encoded("foo"), "Zm9v");
  EXPECT_EQ(Encoded("foobar"), "Zm9vYmFy");
}

TEST(Base64, HasAllDigits) { EXPECT_EQ(Base64({0x00, 0x10, 0x83, 0xfb, 0xff, 0xbf}), "ABCD+/+/"); }

TEST(PngUri, HoldsAPng) {
  // The base64 form of the signature.
  EXPECT_THAT(PngUri(FlatPicture(3, 2, 7)), StartsWith("data:image/png;base64,iVBORw0KGgo"));
}

TEST(PhotoUri, HoldsWhatTheBuildCanWrite) {
  EXPECT_THAT(PhotoUri(FlatPicture(30, 20, 7), 80),
              StartsWith(WritesJpeg() ? "data:image/jpeg;base64,/9j/" : "data:image/png;base64,"));
}

TEST(FitPhoto, LeavesAPictureThatFitsAsItIs) {
  const FittedPhoto photo = FitPhoto(Noise(200, 100), 1'000'000);
  EXPECT_EQ(photo.width, 200);
  EXPECT_EQ(photo.height, 100);
}

TEST(FitPhoto, TakesQualityFirst) {
  if (!WritesJpeg()) {
    GTEST_SKIP() << "this build has no libjpeg";
  }
  const Picture picture = Noise(200, 100);
  const FittedPhoto photo = FitPhoto(picture, PhotoUri(picture, 75).size());
  EXPECT_EQ(photo.width, 200);
  EXPECT_EQ(photo.dataUri, PhotoUri(picture, 70));
}

TEST(FitPhoto, ThenPixels) {
  const FittedPhoto photo = FitPhoto(Noise(600, 300), 20'000);
  EXPECT_LE(photo.dataUri.size(), 20'000u);
  EXPECT_GT(photo.dataUri.size(), 8'000u);
  EXPECT_LT(photo.width, 600);
  EXPECT_EQ(photo.width / 2, photo.height);
}

TEST(FitPhoto, LeavesSomethingToBeSeen) {
  const FittedPhoto photo = FitPhoto(Noise(600, 300), 1);
  EXPECT_EQ(std::max(photo.width, photo.height), 64);
}

}  // namespace
}  // namespace quorvex::tests
