#include "crossmark/cross_mark_search.h"

#include <gtest/gtest.h>

#include "base/gray_image.h"
#include "crossmark/cross_location.h"
#include "tests/support/bytes.h"
#include "tests/support/stroke_image.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr int kWidth = 800;  // pixels
constexpr int kHeight = 400;
constexpr int kSearchSize = 100;  // pixels

class CrossMarkSearchTest : public ::testing::Test {
 protected:
  CrossMarkSearchTest() {
    for (const int x : {200, 550}) {
      DrawBox(strokes, x - 60, 199, x + 60, 201);
      DrawBox(strokes, x - 1, 140, x + 1, 260);
    }
  }

  const CrossMark* Locate(CrossMarkSearch& search, int x) {
    return search.Locate(x, 200, kSearchSize);
  }

  TemporaryDirectory directory;
  GrayImage strokes{kWidth, kHeight};
  GrayView view{strokes.Data(), kWidth, kHeight};
};

TEST_F(CrossMarkSearchTest, AMarkIsExaminedOnce) {
  MarkPictures pictures;
  CrossMarkSearch search(view, pictures);
  const CrossMark* first = Locate(search, 205);
  ASSERT_NE(first, nullptr);
  EXPECT_NE(Locate(search, 550), first);
  EXPECT_EQ(Locate(search, 195), first);
}

TEST_F(CrossMarkSearchTest, FindsWhatALoneSearchFinds) {
  MarkPictures pictures;
  CrossMarkSearch search(view, pictures);
  for (const int x : {205, 550, 20, 200, 375, 560}) {
    LineSegment firstLine;
    LineSegment secondLine;
    PointF centre = {0.0f, 0.0f};
    const bool isFound = LocateCrossMark(strokes.Data(), kWidth, kHeight, x, 200, kSearchSize,
                                         firstLine, secondLine, centre) != 0;
    const CrossMark* mark = Locate(search, x);
    ASSERT_EQ(mark != nullptr, isFound) << x;
    if (isFound) {
      EXPECT_EQ(mark->centre.x, centre.x);
      EXPECT_EQ(mark->centre.y, centre.y);
      EXPECT_EQ(mark->firstLine.a, firstLine.a);
      EXPECT_EQ(mark->secondLine.c, secondLine.c);
    }
  }
}

// A mark that was examined before is shown like any other.
TEST_F(CrossMarkSearchTest, PicturesShowTheLastMark) {
  {
    MarkPictures pictures;
    CrossMarkSearch search(view, pictures);
    Locate(search, 200);
  }
  const Bytes region = ReadBytes("CrossMarkRegion.bmp");
  const Bytes lines = ReadBytes("Lines.bmp");
  DrawBox(strokes, 540, 150, 545, 160);  // so that the two marks differ
  {
    MarkPictures pictures;
    CrossMarkSearch search(view, pictures);
    Locate(search, 200);
    Locate(search, 550);
    Locate(search, 200);
  }
  EXPECT_EQ(ReadBytes("CrossMarkRegion.bmp"), region);
  EXPECT_EQ(ReadBytes("Lines.bmp"), lines);
}

}  // namespace
}  // namespace quorvex::tests
