#include "crossmark/cross_strokes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "base/gray_image.h"
#include "tests/support/stroke_image.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr int kSize = 120;  // pixels

class FindCrossStrokesTest : public ::testing::Test {
 protected:
  bool Find(int strokeValue = 255) {
    return FindCrossStrokes({patch.Data(), kSize, strokeValue, 200, 140}, strokes);
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
  ASSERT_TRUE(Find());
  EXPECT_NEAR(strokes.crossing.x, 50.0f, 0.5f);
  EXPECT_NEAR(strokes.crossing.y, 70.0f, 0.5f);
  EXPECT_NEAR(std::fabs(strokes.first.b), 1.0f, 0.01f);
  EXPECT_NEAR(std::fabs(strokes.second.a), 1.0f, 0.01f);
}

TEST_F(FindCrossStrokesTest, StrokesAreOfTheGivenLevel) {
  patch.Fill(255);
  DrawBox(patch, 5, 70, 110, 70, 0);
  DrawBox(patch, 50, 30, 50, 110, 0);
  ASSERT_TRUE(Find(0));
  EXPECT_NEAR(strokes.crossing.x, 50.0f, 0.5f);
}

TEST_F(FindCrossStrokesTest, PicturesHaveTheGivenSize) {
  DrawRow(5, 110);
  DrawColumn(30, 110);
  ASSERT_TRUE(Find());
  const std::uintmax_t expected = 14 + 40 + 256 * 4 + 200 * 140;
  EXPECT_EQ(std::filesystem::file_size("Lines.bmp"), expected);
  EXPECT_EQ(std::filesystem::file_size("LineSegment.bmp"), expected);
}

TEST_F(FindCrossStrokesTest, WithoutLinesNoPictureIsLeft) {
  EXPECT_FALSE(Find());
  EXPECT_FALSE(std::filesystem::exists("Lines.bmp"));
}

TEST_F(FindCrossStrokesTest, WithoutSegmentsOnlyTheLinesAreLeft) {
  DrawRow(5, 30);
  DrawRow(60, 85);
  EXPECT_FALSE(Find());
  EXPECT_TRUE(std::filesystem::exists("Lines.bmp"));
  EXPECT_FALSE(std::filesystem::exists("LineSegment.bmp"));
}

TEST_F(FindCrossStrokesTest, OneStrokeDoesNotCross) {
  DrawRow(5, 110);
  EXPECT_FALSE(Find());
  EXPECT_TRUE(std::filesystem::exists("LineSegment.bmp"));
}

}  // namespace
}  // namespace quorvex::tests
