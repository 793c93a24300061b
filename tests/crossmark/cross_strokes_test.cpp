#include "crossmark/cross_strokes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <memory>

#include "base/gray_image.h"
#include "crossmark/cross_lines.h"
#include "crossmark/line_splitting.h"
#include "tests/support/lines.h"
#include "tests/support/stroke_image.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr int kSize = 120;  // pixels

class FindCrossStrokesTest : public ::testing::Test {
 protected:
  // Also leaves the pictures of what was found.
  StrokeFinding Find(int strokeValue = 255) {
    const StrokePatch strokePatch{std::make_shared<const GrayImage>(patch), strokeValue, 200, 140};
    HoughTransform hough(kSize, kSize);
    const StrokeFinding finding = FindCrossStrokes(strokePatch, hough, strokes);
    MarkPictures pictures;
    ShowStrokes(strokePatch, finding, pictures);
    return finding;
  }

  void DrawRow(int first, int last) { DrawBox(patch, first, 70, last, 70); }
  void DrawColumn(int first, int last) { DrawBox(patch, 50, first, 50, last); }

  TemporaryDirectory directory;
  GrayImage patch{kSize, kSize};
  CrossStrokes strokes;
};

TEST_F(FindCrossStrokesTest, TheLongerStrokeIsTheFirst) {
  DrawRow(5, 110);
  DrawColumn(30, 110);
  ASSERT_EQ(Find(), StrokeFinding::kCross);
  EXPECT_NEAR(strokes.crossing.x, 50.0f, 0.5f);
  EXPECT_NEAR(strokes.crossing.y, 70.0f, 0.5f);
  EXPECT_NEAR(std::fabs(strokes.first.b), 1.0f, 0.01f);
  EXPECT_NEAR(std::fabs(strokes.second.a), 1.0f, 0.01f);
}

TEST_F(FindCrossStrokesTest, StrokesAreOfTheGivenLevel) {
  patch.Fill(255);
  DrawBox(patch, 5, 70, 110, 70, 0);
  DrawBox(patch, 50, 30, 50, 110, 0);
  ASSERT_EQ(Find(0), StrokeFinding::kCross);
  EXPECT_NEAR(strokes.crossing.x, 50.0f, 0.5f);
}

TEST_F(FindCrossStrokesTest, PicturesHaveTheGivenSize) {
  DrawRow(5, 110);
  DrawColumn(30, 110);
  ASSERT_EQ(Find(), StrokeFinding::kCross);
  const std::uintmax_t expected = 14 + 40 + 256 * 4 + 200 * 140;
  EXPECT_EQ(std::filesystem::file_size("Lines.bmp"), expected);
  EXPECT_EQ(std::filesystem::file_size("LineSegment.bmp"), expected);
}

TEST_F(FindCrossStrokesTest, WithoutLinesNoPictureIsLeft) {
  EXPECT_EQ(Find(), StrokeFinding::kNothing);
  EXPECT_FALSE(std::filesystem::exists("Lines.bmp"));
}

TEST_F(FindCrossStrokesTest, WithoutSegmentsOnlyTheLinesAreLeft) {
  DrawRow(5, 30);
  DrawRow(60, 85);
  EXPECT_EQ(Find(), StrokeFinding::kLines);
  EXPECT_TRUE(std::filesystem::exists("Lines.bmp"));
  EXPECT_FALSE(std::filesystem::exists("LineSegment.bmp"));
}

TEST_F(FindCrossStrokesTest, OneStrokeDoesNotCross) {
  DrawRow(5, 110);
  EXPECT_EQ(Find(), StrokeFinding::kSegments);
  EXPECT_TRUE(std::filesystem::exists("LineSegment.bmp"));
}

// The weaker lines of a crowded patch are not looked at, and must not be missed.
TEST_F(FindCrossStrokesTest, AreThoseThatAllLinesWouldGive) {
  for (int y = 4; y < 110; y += 9) {
    DrawBox(patch, 5 + y / 3, y, 108, y);
  }
  for (int x = 8; x < 110; x += 11) {
    DrawBox(patch, x, 20 + x / 4, x, 100);
  }
  LineSegmentList lines;
  HoughLines(patch.Data(), kSize, kSize, 255, lines);
  LineSegmentList segments;
  SplitLineSegments(lines, segments);
  CrossStrokes expected;
  ASSERT_TRUE(SelectCrossLines(segments, expected.crossing.x, expected.crossing.y, expected.first,
                               expected.second));
  ASSERT_EQ(Find(), StrokeFinding::kCross);
  EXPECT_EQ(BitsOf(strokes.first.points), BitsOf(expected.first.points));
  EXPECT_EQ(BitsOf(strokes.second.points), BitsOf(expected.second.points));
  EXPECT_EQ(strokes.crossing.x, expected.crossing.x);
  EXPECT_EQ(strokes.crossing.y, expected.crossing.y);
}

}  // namespace
}  // namespace quorvex::tests
