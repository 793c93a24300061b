#include "preprocess/component_removal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/bytes.h"
#include "tests/support/text_image.h"

namespace quorvex::tests {
namespace {

using Rows = std::vector<std::string>;

constexpr unsigned char kKept = 128;

struct Box {
  int left;
  int right;  // inclusive, as bottom
  int top;
  int bottom;
};

Box At(int left, int top, int width, int height) {
  return {left, left + width - 1, top, top + height - 1};
}

GrayImage WithBoxes(const std::vector<Box>& boxes, int width = 448, int height = 448) {
  GrayImage image(width, height);
  for (const Box& box : boxes) {
    for (int y = box.top; y <= box.bottom; ++y) {
      std::fill_n(image.Data() + PixelOffset(box.left, y, width), box.right - box.left + 1,
                  static_cast<unsigned char>(255));
    }
  }
  return image;
}

// How many pixels are kept, all others being 0 afterwards.
std::ptrdiff_t KeptOf(GrayImage image) {
  EXPECT_TRUE(RemoveLargeComponents(image.Data(), image.Width(), image.Height()));
  const unsigned char* end = std::as_const(image).Data() + image.Size();
  const std::ptrdiff_t kept = std::count(std::as_const(image).Data(), end, kKept);
  const std::ptrdiff_t black = std::count(std::as_const(image).Data(), end, 0);
  EXPECT_EQ(kept + black, static_cast<std::ptrdiff_t>(image.Size()));
  return kept;
}

std::ptrdiff_t KeptOf(const std::vector<Box>& boxes) { return KeptOf(WithBoxes(boxes)); }

Rows Cleaned(const Rows& rows) {
  GrayImage image = ImageOf(rows);
  EXPECT_TRUE(RemoveLargeComponents(image.Data(), image.Width(), image.Height()));
  return TextOf(image);
}

TEST(ComponentRemoval, LineOf400PixelsStaysAndOf401Goes) {
  EXPECT_EQ(KeptOf({At(20, 30, 400, 1)}), 400);
  EXPECT_EQ(KeptOf({At(20, 30, 401, 1)}), 0);
  EXPECT_EQ(KeptOf({At(30, 20, 1, 400)}), 400);
  EXPECT_EQ(KeptOf({At(30, 20, 1, 401)}), 0);
}

TEST(ComponentRemoval, LinesAtTheBordersAreMeasuredTheSame) {
  EXPECT_EQ(KeptOf({At(0, 0, 400, 1), At(0, 2, 1, 400)}), 800);
  EXPECT_EQ(KeptOf({At(448 - 401, 447, 401, 1)}), 0);
  EXPECT_EQ(KeptOf({At(447, 448 - 401, 1, 401)}), 0);
}

TEST(ComponentRemoval, SquareOf70StaysAndOf71Goes) {
  EXPECT_EQ(KeptOf({At(10, 10, 70, 70)}), 4900);
  EXPECT_EQ(KeptOf({At(10, 10, 71, 71)}), 0);
}

TEST(ComponentRemoval, AreaOf5000StaysAndOnePixelMoreGoes) {
  EXPECT_EQ(KeptOf({At(10, 10, 100, 50)}), 5000);
  EXPECT_EQ(KeptOf({At(10, 10, 100, 50), At(10, 60, 1, 1)}), 0);
}

TEST(ComponentRemoval, ComponentsAreJudgedOneByOne) {
  EXPECT_EQ(KeptOf({At(0, 0, 60, 60), At(62, 0, 60, 60), At(0, 100, 401, 1)}), 7200);
}

// Each pair of arms is wider than 400 only together; the joint is a diagonal step.
TEST(ComponentRemoval, DiagonalNeighboursAreConnected) {
  EXPECT_EQ(KeptOf({At(0, 5, 210, 1), At(210, 6, 210, 1)}), 0);  // to the lower right
  EXPECT_EQ(KeptOf({At(210, 5, 210, 1), At(0, 6, 210, 1)}), 0);  // to the lower left
  // Down to one pixel and up again, to the right and to the left of it.
  EXPECT_EQ(KeptOf({At(0, 5, 210, 1), At(210, 6, 1, 1), At(211, 5, 210, 1)}), 0);
  EXPECT_EQ(KeptOf({At(212, 4, 200, 1), At(211, 5, 1, 1), At(210, 6, 1, 1), At(0, 5, 210, 1)}), 0);
}

TEST(ComponentRemoval, PixelsTwoApartAreNotConnected) {
  EXPECT_EQ(KeptOf({At(0, 5, 210, 1), At(211, 5, 210, 1)}), 420);
  EXPECT_EQ(KeptOf({At(0, 5, 210, 1), At(210, 7, 210, 1)}), 420);
}

TEST(ComponentRemoval, EndsOfRowsAreNotConnected) {
  // As bytes the runs follow each other.
  EXPECT_EQ(KeptOf({At(448 - 210, 5, 210, 1), At(0, 6, 210, 1)}), 420);
}

TEST(ComponentRemoval, KeptComponentsAre128) {
  EXPECT_EQ(Cleaned({".##.",  //
                     "#.#.",  //
                     "###."}),
            (Rows{"o##o",  //
                  "#o#o",  //
                  "###o"}));
}

TEST(ComponentRemoval, OtherLevelsAreLeftAlone) {
  EXPECT_EQ(Cleaned({"o-#o",  //
                     "----"}),
            (Rows{"o-#o",  //
                  "----"}));
}

TEST(ComponentRemoval, OtherLevelsDoNotConnect) {
  for (const int level : {254, 128, 1}) {
    GrayImage image = WithBoxes({At(0, 5, 210, 1), At(211, 5, 210, 1)});
    image.Data()[PixelOffset(210, 5, 448)] = static_cast<unsigned char>(level);
    EXPECT_TRUE(RemoveLargeComponents(image.Data(), 448, 448));
    EXPECT_EQ(image.Data()[PixelOffset(209, 5, 448)], kKept);
    EXPECT_EQ(image.Data()[PixelOffset(210, 5, 448)], level);
    EXPECT_EQ(image.Data()[PixelOffset(211, 5, 448)], kKept);
  }
}

TEST(ComponentRemoval, RowsArePaddedToFourBytesAndThePaddingStays) {
  Bytes image = {0, 255, 0, 0, 0, 255, 255, 255, 0, 0, 255, 0, 0, 255, 255, 255};
  EXPECT_TRUE(RemoveLargeComponents(image.data(), 5, 2));
  EXPECT_EQ(image, (Bytes{0, 128, 0, 0, 0, 255, 255, 255, 0, 0, 128, 0, 0, 255, 255, 255}));
}

TEST(ComponentRemoval, ImageWithoutPixelsIsNoWork) {
  unsigned char pixel = 255;
  EXPECT_TRUE(RemoveLargeComponents(&pixel, 0, 4));
  EXPECT_TRUE(RemoveLargeComponents(&pixel, 4, 0));
  EXPECT_EQ(pixel, 255);
}

// A search gives up once it has added 10,000,001 pixels to its seed. Of 10,000,004 white pixels it
// leaves two, in the row that it came to last; they are a component of their own.
TEST(ComponentRemoval, SearchGivesUpBeyondTenMillionPixels) {
  constexpr int kWidth = 4;
  constexpr int kHeight = 2'500'001;
  GrayImage image = WithBoxes({At(0, 0, kWidth, kHeight)}, kWidth, kHeight);
  const auto lastRow = static_cast<std::size_t>(kWidth) * (kHeight - 1);
  EXPECT_TRUE(RemoveLargeComponents(image.Data(), kWidth, kHeight));
  EXPECT_EQ(std::count(image.Data(), image.Data() + lastRow, 0), static_cast<long>(lastRow));
  EXPECT_EQ(std::count(image.Data() + lastRow, image.Data() + image.Size(), kKept), 2);
}

}  // namespace
}  // namespace quorvex::tests
