#include "crossmark/mark_pictures.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "base/gray_image.h"
#include "crossmark/hough_lines.h"
#include "crossmark/line_picture.h"
#include "crossmark/line_splitting.h"
#include "tests/support/bytes.h"
#include "tests/support/stroke_image.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr int kSize = 120;  // pixels

SharedPatch Flat(unsigned char level) {
  GrayImage patch(8, 4);
  patch.Fill(level);
  return std::make_shared<const GrayImage>(patch);
}

StrokePatch CrossPatch(int column) {
  GrayImage patch(kSize, kSize);
  DrawBox(patch, 5, 70, 110, 70);
  DrawBox(patch, column, 30, column, 110);
  return {std::make_shared<const GrayImage>(patch), 255, 200, 140};
}

class MarkPicturesTest : public ::testing::Test {
  TemporaryDirectory directory_;
};

TEST_F(MarkPicturesTest, AreWrittenAtTheEnd) {
  {
    MarkPictures pictures;
    pictures.ShowRegion(Flat(1));
    pictures.ShowBinarized(Flat(2));
    pictures.ShowThinned(Flat(3));
    EXPECT_TRUE(std::filesystem::is_empty("."));
  }
  EXPECT_EQ(ReadBytes("CrossMarkRegion.bmp").back(), 1);
  EXPECT_EQ(ReadBytes("Sauvola.bmp").back(), 2);
  EXPECT_EQ(ReadBytes("Thining.bmp").back(), 3);
  EXPECT_FALSE(std::filesystem::exists("Lines.bmp"));
  EXPECT_FALSE(std::filesystem::exists("LineSegment.bmp"));
}

TEST_F(MarkPicturesTest, ShowWhatWasShownLast) {
  {
    MarkPictures pictures;
    pictures.ShowRegion(Flat(1));
    pictures.ShowLines(CrossPatch(30));
    pictures.ShowSegments(CrossPatch(40));
    pictures.ShowRegion(Flat(9));
    pictures.ShowLines(CrossPatch(50));
  }
  EXPECT_EQ(ReadBytes("CrossMarkRegion.bmp").back(), 9);

  LineSegmentList lines;
  HoughLines(CrossPatch(50).pixels->Data(), kSize, kSize, 255, lines);
  SaveLinePicture(lines, 200, 140, "expected.bmp");
  EXPECT_EQ(ReadBytes("Lines.bmp"), ReadBytes("expected.bmp"));

  lines.clear();
  HoughLines(CrossPatch(40).pixels->Data(), kSize, kSize, 255, lines);
  LineSegmentList segments;
  SplitLineSegments(lines, segments);
  SaveLinePicture(segments, 200, 140, "expected.bmp");
  EXPECT_EQ(ReadBytes("LineSegment.bmp"), ReadBytes("expected.bmp"));
}

TEST_F(MarkPicturesTest, AreWrittenWhenACallEndsInAnException) {
  try {
    MarkPictures pictures;
    pictures.ShowRegion(Flat(7));
    throw std::bad_alloc();
  } catch (const std::bad_alloc&) {
  }
  EXPECT_EQ(ReadBytes("CrossMarkRegion.bmp").back(), 7);
}

}  // namespace
}  // namespace quorvex::tests
