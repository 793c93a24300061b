#include "tools/pictures/orientation.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"

namespace quorvex::tests {

using namespace tools;

namespace {

int Orientation(const Bytes& bytes) { return ExifOrientation(bytes.data(), bytes.size()); }

// One entry before that of the orientation, little end first.
const Bytes kExif = {'E', 'x', 'i', 'f', 0,  0, 'I', 'I', 42,   0, 8, 0, 0, 0, 2, 0, 0, 1, 3, 0,
                     1,   0,   0,   0,   77, 0, 0,   0,   0x12, 1, 3, 0, 1, 0, 0, 0, 3, 0, 0, 0};

TEST(ExifOrientation, IsFoundAmongTheEntries) { EXPECT_EQ(Orientation(kExif), 3); }

TEST(ExifOrientation, IsUprightOrNothingInFilesThatAreCut) {
  for (std::size_t size = 0; size < kExif.size(); ++size) {
    const int orientation =
        Orientation(Bytes(kExif.begin(), kExif.begin() + static_cast<std::ptrdiff_t>(size)));
    EXPECT_EQ(OrientationNote(orientation) == "", size < 38) << size;
  }
}

TEST(OrientationNote, IsForTurnedPictures) {
  EXPECT_EQ(OrientationNote(1), "");
  EXPECT_EQ(OrientationNote(0), "");
  EXPECT_EQ(OrientationNote(9), "");
  EXPECT_NE(OrientationNote(2), "");
}

}  // namespace
}  // namespace quorvex::tests
