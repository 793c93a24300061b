#include "precise/stroke_section.h"

#include <gtest/gtest.h>

#include "tests/precise/mark_drawing.h"

namespace quorvex::tests {
namespace {

using precise::BuildPyramid;
using precise::CutStroke;
using precise::GrayPicture;
using precise::PyramidLevel;
using precise::StrokeSection;

// A stroke 3 px wide along row 50.25, 160 grey levels dark.
PyramidLevel LevelWithStroke() {
  GrayPicture picture(100, 100, kBoardLevel);
  DrawMark({{50, 50.25}, {0, 180}, 100, 3}, picture);
  return BuildPyramid(picture)[0];
}

TEST(StrokeSection, FindsTheMiddleOfAStroke) {
  const PyramidLevel level = LevelWithStroke();
  for (const double y : {49.5, 50.0, 51.0}) {
    const StrokeSection section = CutStroke(level, {50, y}, {0, 1}, 1.0);
    ASSERT_TRUE(section.isInside);
    EXPECT_NEAR(y + section.offset, 50.25, 0.1);
    EXPECT_NEAR(section.brightest, kBoardLevel, 1);
  }
}

TEST(StrokeSection, OffsetIsCountedAlongTheNormal) {
  const PyramidLevel level = LevelWithStroke();
  EXPECT_NEAR(CutStroke(level, {50, 49.5}, {0, -1}, 1.0).offset, -0.75, 0.1);
}

// The level is smoothed: the middle of a stroke that starts within a pixel is not all dark.
TEST(StrokeSection, DepthIsTheDarknessOfTheMiddle) {
  EXPECT_NEAR(CutStroke(LevelWithStroke(), {50, 50}, {0, 1}, 1.0).depth, 140, 5);
}

TEST(StrokeSection, EdgeHasNoDepthSinceOneSideIsAsDark) {
  GrayPicture picture(100, 100, kBoardLevel);
  DrawMark({{50, 0}, {0, 180}, 100, 100}, picture);
  EXPECT_LE(CutStroke(BuildPyramid(picture)[0], {50, 50}, {0, 1}, 1.0).depth, 0);
}

TEST(StrokeSection, CutBeyondTheFrameSaysSo) {
  const PyramidLevel level = LevelWithStroke();
  EXPECT_FALSE(CutStroke(level, {50, 2}, {0, 1}, 1.0).isInside);
  EXPECT_FALSE(CutStroke(level, {97.5, 50}, {1, 0}, 1.0).isInside);
  EXPECT_TRUE(CutStroke(level, {50, 3}, {0, 1}, 1.0).isInside);
}

}  // namespace
}  // namespace quorvex::tests
