#include "tools/pictures/jpeg_writer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <stdexcept>

#include "tests/support/test_files.h"
#include "tools/pictures/jpeg_reader.h"

namespace quorvex::tests {

using namespace tools;

namespace {

Picture Slope(int width, int height) {
  Picture picture = FlatPicture(width, height, 0);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      picture.At(x, y) = static_cast<std::uint8_t>(2 * x + y);
    }
  }
  return picture;
}

TEST(EncodeJpeg, IsReadAgainNearlyAsItWas) {
  if (!WritesJpeg()) {
    GTEST_SKIP() << "this build has no libjpeg";
  }
  const Picture picture = Slope(61, 43);
  const Picture read = DecodeJpeg(EncodeJpeg(picture, 90), "slope");
  ASSERT_EQ(read.width, 61);
  ASSERT_EQ(read.height, 43);
  for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
    ASSERT_NEAR(read.pixels[i], picture.pixels[i], 8) << i;
  }
}

TEST(EncodeJpeg, ALowerQualityTakesFewerBytes) {
  if (!WritesJpeg()) {
    GTEST_SKIP() << "this build has no libjpeg";
  }
  const Picture picture = Slope(61, 43);
  EXPECT_LT(EncodeJpeg(picture, 30).size(), EncodeJpeg(picture, 95).size());
}

TEST(EncodeJpeg, SaysWhyItFails) { EXPECT_THROW(EncodeJpeg(Picture(), 90), std::runtime_error); }

}  // namespace
}  // namespace quorvex::tests
