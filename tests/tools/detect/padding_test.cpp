#include "tools/detect/padding.h"

#include <gtest/gtest.h>

#include "tests/support/test_files.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(Padding, KnowsWhichSizesCanBeDetected) {
  EXPECT_TRUE(HasDetectableSize(FlatPicture(4, 8, 0)));
  EXPECT_FALSE(HasDetectableSize(FlatPicture(5, 8, 0)));
  EXPECT_FALSE(HasDetectableSize(FlatPicture(8, 6, 0)));
  EXPECT_FALSE(HasDetectableSize(FlatPicture(0, 0, 0)));
}

TEST(Padding, RepeatsTheLastColumnAndTheLastRow) {
  Picture picture = FlatPicture(3, 2, 0);
  picture.pixels = {1, 2, 3,  //
                    4, 5, 6};
  const Picture padded = PadToDetectableSize(picture);
  EXPECT_EQ(padded.width, 4);
  EXPECT_EQ(padded.height, 4);
  EXPECT_EQ(padded.pixels, (std::vector<std::uint8_t>{1, 2, 3, 3,  //
                                                      4, 5, 6, 6,  //
                                                      4, 5, 6, 6,  //
                                                      4, 5, 6, 6}));
}

TEST(Padding, LeavesADetectableSizeAlone) {
  Picture picture = FlatPicture(8, 4, 7);
  EXPECT_EQ(PadToDetectableSize(picture).pixels, picture.pixels);
}

}  // namespace
}  // namespace quorvex::tests
