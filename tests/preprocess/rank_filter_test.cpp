#include "preprocess/rank_filter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/bytes.h"
#include "tests/support/faults.h"
#include "tests/support/text_image.h"

namespace quorvex::tests {
namespace {

using Rows = std::vector<std::string>;

Rows Filtered(const Rows& rows) {
  GrayImage image = ImageOf(rows);
  // A width that is no multiple of 4 would have padded rows.
  EXPECT_TRUE(image.Width() % 4 == 0 || image.Width() < 3);
  EXPECT_TRUE(RankFilter3x3(image.Data(), image.Width(), image.Height(), 0));
  return TextOf(image);
}

// The result at the centre of a 3 x 3 image.
int CentreOf(const Bytes& values) {
  Bytes image = {values[0], values[1], values[2], 0,         values[3], values[4],
                 values[5], 0,         values[6], values[7], values[8], 0};
  EXPECT_TRUE(RankFilter3x3(image.data(), 3, 3, 0));
  return image[5];
}

TEST(RankFilter, SingleBlackPixelVanishes) {
  EXPECT_EQ(Filtered({"........",  //
                      "........",  //
                      "...#....",  //
                      "........",  //
                      "........"}),
            Rows(5, "........"));
}

TEST(RankFilter, BlackBlockLosesItsCorners) {
  EXPECT_EQ(Filtered({"........",  //
                      "........",  //
                      "..###...",  //
                      "..###...",  //
                      "..###...",  //
                      "........",  //
                      "........"}),
            (Rows{"........",  //
                  "........",  //
                  "...#....",  //
                  "..###...",  //
                  "...#....",  //
                  "........",  //
                  "........"}));
}

TEST(RankFilter, ThinBlackLineVanishes) {
  EXPECT_EQ(Filtered({"........",  //
                      "........",  //
                      ".######.",  //
                      "........"}),
            Rows(4, "........"));
}

TEST(RankFilter, PixelIsBlackWhereSixOfNineAre) {
  for (std::size_t blackCount = 0; blackCount <= 9; ++blackCount) {
    Bytes values(9, 255);
    std::fill_n(values.begin(), blackCount, static_cast<unsigned char>(0));
    EXPECT_EQ(CentreOf(values), blackCount >= 6 ? 0 : 255) << blackCount;
    // The centre counts as one of the nine, no more.
    std::reverse(values.begin(), values.end());
    EXPECT_EQ(CentreOf(values), blackCount >= 6 ? 0 : 255) << blackCount;
  }
  EXPECT_EQ(CentreOf({0, 0, 0, 0, 255, 0, 0, 255, 255}), 0);
  EXPECT_EQ(CentreOf({0, 0, 0, 255, 0, 255, 0, 255, 255}), 255);
}

TEST(RankFilter, GreyPixelBecomesTheSixthSmallest) {
  EXPECT_EQ(CentreOf({90, 10, 50, 20, 80, 30, 70, 40, 60}), 60);
  EXPECT_EQ(CentreOf({10, 20, 30, 40, 50, 60, 70, 80, 90}), 60);
  EXPECT_EQ(CentreOf({90, 80, 70, 60, 50, 40, 30, 20, 10}), 60);
  EXPECT_EQ(CentreOf({200, 5, 5, 5, 5, 200, 200, 200, 250}), 200);
}

TEST(RankFilter, BorderKeepsItsValues) {
  EXPECT_EQ(Filtered({"#.#.",  //
                      ".#.#",  //
                      "#.#."}),
            (Rows{"#.#.",  //
                  "...#",  //
                  "#.#."}));
}

// With the result of the neighbour instead of its input, the fourth white pixel would be there.
TEST(RankFilter, NeighboursAreThoseOfTheInput) {
  EXPECT_EQ(Filtered({"..#.",  //
                      ".###",  //
                      ".##."})[1],
            "..##");
  EXPECT_EQ(Filtered({".#..",  //
                      "###.",  //
                      ".##."})[1],
            "##..");
  // The same turned: three columns, padded to four.
  constexpr unsigned char kB = 0;
  constexpr unsigned char kW = 255;
  Bytes growingDown = {kW, kW, kW, 9, kW, kB, kB, 9, kB, kB, kB, 9, kW, kB, kW, 9};
  EXPECT_TRUE(RankFilter3x3(growingDown.data(), 3, 4, 0));
  EXPECT_EQ(growingDown, (Bytes{kW, kW, kW, 9, kW, kW, kB, 9, kB, kB, kB, 9, kW, kB, kW, 9}));
  Bytes growingUp = {kW, kB, kW, 9, kB, kB, kB, 9, kW, kB, kB, 9, kW, kW, kW, 9};
  EXPECT_TRUE(RankFilter3x3(growingUp.data(), 3, 4, 0));
  EXPECT_EQ(growingUp, (Bytes{kW, kB, kW, 9, kB, kB, kB, 9, kW, kW, kB, 9, kW, kW, kW, 9}));
}

TEST(RankFilter, RowsArePaddedToFourBytesAndThePaddingStays) {
  // Five pixels and three bytes of padding a row; a stride of five would gather others.
  Bytes image = {9, 9, 9, 9, 9, 1, 1, 1, 9, 9, 0, 9, 9, 1, 1, 1, 9, 9, 9, 9, 9, 1, 1, 1};
  const Bytes expected = {9, 9, 9, 9, 9, 1, 1, 1, 9, 9, 9, 9, 9, 1, 1, 1, 9, 9, 9, 9, 9, 1, 1, 1};
  EXPECT_TRUE(RankFilter3x3(image.data(), 5, 3, 0));
  EXPECT_EQ(image, expected);
}

TEST(RankFilter, ImageWithoutInteriorStays) {
  const Rows twoRows = {"#.#.",  //
                        ".#.#"};
  EXPECT_EQ(Filtered(twoRows), twoRows);
  Bytes twoColumns = {0, 255, 0, 0, 255, 0, 0, 0, 0, 255, 0, 0};
  const Bytes before = twoColumns;
  EXPECT_TRUE(RankFilter3x3(twoColumns.data(), 2, 3, 0));
  EXPECT_EQ(twoColumns, before);
  EXPECT_TRUE(RankFilter3x3(twoColumns.data(), 0, 0, 0));
}

TEST(RankFilter, LastParameterIsIgnored) {
  for (const int unused : {-1, 0, 1, 1000}) {
    GrayImage image = ImageOf({"....", ".#..", "...."});
    EXPECT_TRUE(RankFilter3x3(image.Data(), 4, 3, unused));
    EXPECT_EQ(TextOf(image), Rows(3, "...."));
  }
}

TEST(RankFilter, MissingMemoryIsFalseAndLeavesTheImage) {
  const Rows rows = {"....", ".#..", "...."};
  for (const int nthAllocation : {1, 2}) {  // the copy, the sorting buffer
    GrayImage image = ImageOf(rows);
    const FailNth fault(Fault::kLocalAlloc, nthAllocation);
    EXPECT_FALSE(RankFilter3x3(image.Data(), 4, 3, 0));
    EXPECT_TRUE(fault.HasHappened());
    EXPECT_EQ(TextOf(image), rows);
  }
}

TEST(RankFilter, MissingMemoryIsFalseForImagesWithoutInterior) {
  GrayImage image = ImageOf({"....", ".#.."});
  for (const auto& [width, height] : {std::pair(4, 2), std::pair(4, 1), std::pair(1, 2)}) {
    const FailNth fault(Fault::kLocalAlloc, 1);
    EXPECT_FALSE(RankFilter3x3(image.Data(), width, height, 0));
    EXPECT_TRUE(fault.HasHappened());
  }
}

}  // namespace
}  // namespace quorvex::tests
