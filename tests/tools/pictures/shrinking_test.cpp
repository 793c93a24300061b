#include "tools/pictures/shrinking.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/test_files.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::ElementsAre;

Picture RowOf(const std::vector<std::uint8_t>& levels) {
  Picture picture = FlatPicture(static_cast<int>(levels.size()), 1, 0);
  picture.pixels = levels;
  return picture;
}

TEST(ShrinkPicture, TakesMeansAndRoundsThem) {
  EXPECT_THAT(ShrinkPicture(RowOf({10, 13, 0, 255, 7, 7}), 3, 1).pixels, ElementsAre(12, 128, 7));
}

TEST(ShrinkPicture, CountsAPixelThatIsCoveredInPart) {
  // Of three pixels each of two covers one and a half.
  EXPECT_THAT(ShrinkPicture(RowOf({0, 100, 200}), 2, 1).pixels, ElementsAre(50, 150));
}

TEST(ShrinkPicture, TakesRowsAndColumns) {
  Picture picture = FlatPicture(4, 4, 0);
  FillBox(picture, 2, 0, 4, 2, 200);
  FillBox(picture, 0, 2, 1, 3, 80);
  EXPECT_THAT(ShrinkPicture(picture, 2, 2).pixels, ElementsAre(0, 200, 20, 0));
}

TEST(ShrinkPicture, OfTheSameSizeIsTheSame) {
  EXPECT_THAT(ShrinkPicture(RowOf({1, 2, 255}), 3, 1).pixels, ElementsAre(1, 2, 255));
}

TEST(ShrinkPicture, OfAWholePictureToOnePixel) {
  EXPECT_THAT(ShrinkPicture(FlatPicture(4096, 2048, 255), 1, 1).pixels, ElementsAre(255));
}

TEST(ShrinkBrightest, KeepsWhatIsBright) {
  EXPECT_THAT(ShrinkBrightest(RowOf({10, 13, 0, 255, 7, 7}), 3, 1).pixels, ElementsAre(13, 255, 7));
  EXPECT_THAT(ShrinkBrightest(RowOf({0, 100, 0}), 2, 1).pixels, ElementsAre(100, 100));
  Picture picture = FlatPicture(4, 4, 0);
  picture.At(3, 2) = 90;
  EXPECT_THAT(ShrinkBrightest(picture, 2, 2).pixels, ElementsAre(0, 0, 0, 90));
}

TEST(ShrinkToSide, KeepsTheShape) {
  const Picture wide = ShrinkToSide(FlatPicture(400, 100, 9), 40);
  EXPECT_EQ(wide.width, 40);
  EXPECT_EQ(wide.height, 10);
  const Picture high = ShrinkToSide(FlatPicture(100, 400, 9), 40);
  EXPECT_EQ(high.width, 10);
  EXPECT_EQ(high.height, 40);
}

TEST(ShrinkToSide, LeavesAPixelOfANarrowPictureAndASmallPictureAsItIs) {
  EXPECT_EQ(ShrinkToSide(FlatPicture(400, 2, 9), 40).height, 1);
  EXPECT_EQ(ShrinkToSide(FlatPicture(40, 12, 9), 40).height, 12);
}

}  // namespace
}  // namespace quorvex::tests
