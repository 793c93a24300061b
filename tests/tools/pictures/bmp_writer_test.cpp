#include "tools/pictures/bmp_writer.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_folder.h"
#include "tools/errors.h"
#include "tools/pictures/bmp_reader.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(EncodeBmp, WritesRowsFromTheBottomUpPaddedToFourBytes) {
  const Bytes bytes = EncodeBmp(Picture{3, 2, {1, 2, 3, 4, 5, 6}}, "a.bmp");
  ASSERT_EQ(bytes.size(), 14u + 40 + 256 * 4 + 2 * 4);
  EXPECT_EQ(Bytes(bytes.end() - 8, bytes.end()), Bytes({4, 5, 6, 0, 1, 2, 3, 0}));
  EXPECT_EQ(DecodeBmp(bytes, "a.bmp").pixels, Bytes({1, 2, 3, 4, 5, 6}));
}

TEST(EncodeBmp, ItsPaletteIsARampOfGreys) {
  const Bytes bytes = EncodeBmp(Picture{1, 1, {9}}, "a.bmp");
  for (std::size_t grey = 0; grey < 256; ++grey) {
    const auto entry = bytes.begin() + static_cast<std::ptrdiff_t>(14 + 40 + 4 * grey);
    const std::uint8_t level = static_cast<std::uint8_t>(grey);
    EXPECT_EQ(Bytes(entry, entry + 4), Bytes({level, level, level, 0}));
  }
}

TEST(EncodeBmp, RefusesWhatTheFormatCannotHold) {
  Picture picture;
  picture.width = picture.height = 65536;  // without pixels: it is refused before they are read
  EXPECT_THROW(EncodeBmp(picture, "a.bmp"), InputError);
}

}  // namespace
}  // namespace quorvex::tests
