#include "preprocess/dilation.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "tests/support/faults.h"
#include "tests/support/text_image.h"

namespace quorvex::tests {
namespace {

using Rows = std::vector<std::string>;
using Element = std::array<int, 9>;

constexpr Element kAll = {1, 1, 1, 1, 1, 1, 1, 1, 1};

Rows Dilated(const Rows& rows, const Element& element = kAll) {
  GrayImage image = ImageOf(rows);
  EXPECT_TRUE(DilateImage(image.Data(), image.Width(), image.Height(), 0, element.data()));
  return TextOf(image);
}

Element Only(std::size_t index, int value = 1) {
  Element element;
  element.fill(-1);
  element[index] = value;
  return element;
}

void ExpectRefused(const Rows& rows) {
  GrayImage image = ImageOf(rows);
  EXPECT_FALSE(DilateImage(image.Data(), image.Width(), image.Height(), 0, kAll.data()));
  EXPECT_EQ(TextOf(image), rows);
}

TEST(Dilation, BlackPixelGrowsToABlock) {
  EXPECT_EQ(Dilated({"........",  //
                     "........",  //
                     "........",  //
                     "...#....",  //
                     "........",  //
                     "........",  //
                     "........"}),
            (Rows{"........",  //
                  "........",  //
                  "..###...",  //
                  "..###...",  //
                  "..###...",  //
                  "........",  //
                  "........"}));
}

TEST(Dilation, FirstAndLastRowComeOutWhite) {
  EXPECT_EQ(Dilated({"..#.....",  //
                     "........",  //
                     "........",  //
                     "........",  //
                     ".....#.."}),
            (Rows{"........",  //
                  ".###....",  //
                  "........",  //
                  "....###.",  //
                  "........"}));
}

TEST(Dilation, RowsNextToTheBorderGrowInwardsOnly) {
  EXPECT_EQ(Dilated({"........",  //
                     "..#.....",  //
                     "........",  //
                     "........"}),
            (Rows{"........",  //
                  ".###....",  //
                  ".###....",  //
                  "........"}));
}

TEST(Dilation, TwoRowsComeOutWhite) {
  EXPECT_EQ(Dilated({"#.#.",  //
                     "####"}),
            Rows(2, "...."));
  EXPECT_EQ(Dilated({"####"}), Rows{"...."});
}

TEST(Dilation, TwoRowsOfGreyComeOutWhite) {
  EXPECT_EQ(Dilated({"oooo",  //
                     "----"}),
            Rows(2, "...."));
}

// Beyond the ends of a row its neighbours are the far ends of the rows above and below.
TEST(Dilation, BlackInTheFirstColumnReachesTheLast) {
  EXPECT_EQ(Dilated({".....",  //
                     ".....",  //
                     ".....",  //
                     "#....",  //
                     ".....",  //
                     "....."}),
            (Rows{".....",  //
                  "....#",  //
                  "##..#",  //
                  "##..#",  //
                  "##...",  //
                  "....."}));
}

TEST(Dilation, BlackInTheLastColumnReachesTheFirst) {
  EXPECT_EQ(Dilated({".....",  //
                     ".....",  //
                     "....#",  //
                     ".....",  //
                     ".....",  //
                     "....."}),
            (Rows{".....",  //
                  "...##",  //
                  "#..##",  //
                  "#..##",  //
                  "#....",  //
                  "....."}));
}

TEST(Dilation, NothingBlackLiesBeforeTheFirstByte) {
  // Upper left neighbours alone; that of (0, 1) would lie one byte before the image.
  EXPECT_EQ(Dilated(Rows(3, "####"), Only(6)),
            (Rows{"....",  //
                  ".###",  //
                  "...."}));
}

TEST(Dilation, NothingBlackLiesBehindTheLastByte) {
  EXPECT_EQ(Dilated(Rows(3, "####"), Only(2)),
            (Rows{"....",  //
                  "###.",  //
                  "...."}));
}

TEST(Dilation, EveryEntryOfTheElementHasItsNeighbour) {
  // Where the black pixel (3, 3) appears when one entry alone is examined.
  struct {
    std::size_t x;
    std::size_t y;
  } constexpr kSeenAt[9] = {{4, 2}, {3, 2}, {2, 2}, {4, 3}, {3, 3}, {2, 3}, {4, 4}, {3, 4}, {2, 4}};
  Rows input(7, "........");
  input[3][3] = '#';
  for (std::size_t index = 0; index < 9; ++index) {
    Rows expected(7, "........");
    expected[kSeenAt[index].y][kSeenAt[index].x] = '#';
    EXPECT_EQ(Dilated(input, Only(index)), expected) << index;
  }
}

TEST(Dilation, OnlyMinusOneLeavesANeighbourOut) {
  const Rows input = {"....",  //
                      "....",  //
                      ".#..",  //
                      "....",  //
                      "...."};
  EXPECT_EQ(Dilated(input, Only(4, -1)), Rows(5, "...."));
  for (const int value : {0, 1, -2, 255}) {
    EXPECT_EQ(Dilated(input, Only(4, value)), input) << value;
  }
}

TEST(Dilation, GreyInAnInteriorRowIsRefused) {
  ExpectRefused({"....",  //
                 ".o..",  //
                 ".#..",  //
                 "...."});
  ExpectRefused({"....",  //
                 ".#..",  //
                 "...-",  //
                 "...."});
  ExpectRefused({"####",  //
                 "-###",  //
                 "####"});
}

TEST(Dilation, GreyInTheFirstOrLastRowIsNotBlack) {
  EXPECT_EQ(Dilated({"oooo",  //
                     "....",  //
                     "----"}),
            Rows(3, "...."));
}

TEST(Dilation, FourthParameterIsIgnored) {
  for (const int unused : {-1, 3, 1000}) {
    GrayImage image = ImageOf({"....", "....", ".#..", "....", "...."});
    EXPECT_TRUE(DilateImage(image.Data(), 4, 5, unused, kAll.data()));
    EXPECT_EQ(TextOf(image), (Rows{"....", "###.", "###.", "###.", "...."}));
  }
}

TEST(Dilation, ImageWithoutPixelsIsNoWork) {
  unsigned char pixel = 7;
  EXPECT_TRUE(DilateImage(&pixel, 0, 3, 0, kAll.data()));
  EXPECT_TRUE(DilateImage(&pixel, 3, 0, 0, kAll.data()));
  EXPECT_TRUE(DilateImage(&pixel, -2, 3, 0, kAll.data()));
  EXPECT_TRUE(DilateImage(&pixel, 3, -2, 0, kAll.data()));
  EXPECT_EQ(pixel, 7);
}

TEST(Dilation, MissingMemoryIsFalseAndLeavesTheImage) {
  const Rows rows = {"....", ".#..", "...."};
  GrayImage image = ImageOf(rows);
  const FailNth fault(Fault::kLocalAlloc, 1);
  EXPECT_FALSE(DilateImage(image.Data(), 4, 3, 0, kAll.data()));
  EXPECT_TRUE(fault.HasHappened());
  EXPECT_EQ(TextOf(image), rows);
}

}  // namespace
}  // namespace quorvex::tests
