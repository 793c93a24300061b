#include "preprocess/binarize.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"

namespace quorvex::tests {
namespace {

Bytes Binarized(Bytes image, int width, int height, unsigned char level) {
  EXPECT_TRUE(BinarizeImage(image.data(), width, height, level));
  return image;
}

TEST(Binarize, LevelItselfIsWhiteAndBelowIsBlack) {
  EXPECT_EQ(Binarized({79, 80, 81, 0}, 4, 1, 80), (Bytes{0, 255, 255, 0}));
}

TEST(Binarize, LevelZeroMakesEverythingWhite) {
  EXPECT_EQ(Binarized({0, 1, 128, 255}, 4, 1, 0), (Bytes{255, 255, 255, 255}));
}

TEST(Binarize, Level255KeepsOnlyWhite) {
  EXPECT_EQ(Binarized({0, 128, 254, 255}, 4, 1, 255), (Bytes{0, 0, 0, 255}));
}

TEST(Binarize, LevelsAbove127AreNotNegative) {
  EXPECT_EQ(Binarized({100, 199, 200, 255}, 4, 1, 200), (Bytes{0, 0, 255, 255}));
}

TEST(Binarize, RowsArePaddedToFourBytesAndThePaddingStays) {
  EXPECT_EQ(Binarized({9, 9, 9, 9, 99, 7, 7, 7, 99, 9, 9, 9, 99, 7, 7, 7}, 5, 2, 50),
            (Bytes{0, 0, 0, 0, 255, 7, 7, 7, 255, 0, 0, 0, 255, 7, 7, 7}));
}

TEST(Binarize, NoRowsAreNoWork) {
  EXPECT_EQ(Binarized({9, 9, 9, 9}, 4, 0, 50), (Bytes{9, 9, 9, 9}));
  EXPECT_EQ(Binarized({9, 9, 9, 9}, 4, -1, 50), (Bytes{9, 9, 9, 9}));
}

}  // namespace
}  // namespace quorvex::tests
