#include "interface/stroke_image.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "tests/support/stroke_image.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr int kSize = 400;  // pixels

// A grey square of 300 pixels on black, with a thin darker cross around (270, 260).
GrayImage Target() {
  GrayImage input(kSize, kSize);
  DrawBox(input, 50, 50, 349, 349, 100);
  DrawBox(input, 230, 259, 310, 261, 75);
  DrawBox(input, 269, 220, 271, 300, 75);
  return input;
}

class MakeStrokeImageTest : public ::testing::Test {
 protected:
  TemporaryDirectory directory;
  GrayImage input = Target();
  StrokeImage image = MakeStrokeImage(input.Data(), kSize, kSize);

  int StrokeAt(int x, int y) const { return image.strokes.Data()[PixelOffset(x, y, kSize)]; }
  int MaskAt(int x, int y) const { return image.mask.Data()[PixelOffset(x, y, kSize)]; }
};

TEST_F(MakeStrokeImageTest, AllPicturesHaveTheSizeOfTheInput) {
  for (const GrayImage* picture : {&image.strokes, &image.mask}) {
    EXPECT_EQ(picture->Width(), kSize);
    EXPECT_EQ(picture->Height(), kSize);
  }
  EXPECT_EQ(image.rowSpans.size(), static_cast<std::size_t>(kSize));
  EXPECT_EQ(image.columnSpans.size(), static_cast<std::size_t>(kSize));
}

TEST_F(MakeStrokeImageTest, TheMaskCoversTheTargetWithItsMark) {
  EXPECT_EQ(MaskAt(200, 200), 255);
  EXPECT_EQ(MaskAt(270, 260), 255);
  EXPECT_EQ(MaskAt(60, 60), 255);
  EXPECT_EQ(MaskAt(30, 200), 0);
  EXPECT_EQ(MaskAt(200, 380), 0);
}

TEST_F(MakeStrokeImageTest, SpansAreThoseOfTheMask) {
  const PixelSpan row = image.rowSpans[200];
  EXPECT_EQ(MaskAt(row.first, 200), 255);
  EXPECT_EQ(MaskAt(row.first - 1, 200), 0);
  EXPECT_EQ(MaskAt(row.last, 200), 255);
  EXPECT_EQ(MaskAt(row.last + 1, 200), 0);
  const PixelSpan column = image.columnSpans[200];
  EXPECT_EQ(MaskAt(200, column.first - 1), 0);
  EXPECT_EQ(MaskAt(200, column.first), 255);
}

TEST_F(MakeStrokeImageTest, TheEdgesOfTheMarkAreStrokes) {
  const unsigned char* first = image.strokes.Data();
  EXPECT_TRUE(std::all_of(first, first + image.strokes.Size(),
                          [](unsigned char level) { return level == 0 || level == 255; }));
  bool hasEdge = false;
  for (int y = 255; y < 265; ++y) {
    hasEdge = hasEdge || StrokeAt(250, y) == 255;
  }
  EXPECT_TRUE(hasEdge);
}

TEST_F(MakeStrokeImageTest, EveryStepLeavesItsPicture) {
  for (const char* name : {"Binarization.bmp", "Dilation.bmp", "Contour.bmp", "SRegion.bmp",
                           "Mask.bmp", "Region.bmp", "Sobel.bmp", "Eliminate.bmp"}) {
    EXPECT_TRUE(std::filesystem::exists(name)) << name;
  }
}

}  // namespace
}  // namespace quorvex::tests
