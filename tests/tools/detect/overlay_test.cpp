#include "tools/detect/overlay.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "tests/support/test_files.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using Rgb = std::array<int, 3>;

Rgb At(const ColorPicture& picture, int x, int y) {
  const std::size_t i = (static_cast<std::size_t>(y) * picture.width + x) * 3;
  return {picture.rgb[i], picture.rgb[i + 1], picture.rgb[i + 2]};
}

constexpr Rgb kGrey{90, 90, 90};
constexpr Rgb kGreen{60, 200, 80};
constexpr Rgb kBlue{80, 150, 255};
constexpr Rgb kRed{240, 40, 40};
constexpr Rgb kOrange{255, 150, 0};
constexpr Rgb kYellow{255, 225, 0};

int CountOf(const ColorPicture& picture, Rgb color) {
  int count = 0;
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) count += At(picture, x, y) == color;
  }
  return count;
}

TEST(Overlay, KeepsTheGreyPictureBelow) {
  const ColorPicture overlay = DrawOverlay(FlatPicture(20, 12, 90), {});
  EXPECT_EQ(overlay.width, 20);
  EXPECT_EQ(overlay.height, 12);
  EXPECT_EQ(CountOf(overlay, kGrey), 20 * 12);
}

TEST(Overlay, JoinsNeighboursInRowAndColumnOnly) {
  const Picture picture = FlatPicture(300, 200, 90);
  // The last point is two columns on from its neighbour to the left.
  const ColorPicture overlay = DrawOverlay(
      picture, {{1, 0, 0, 40, 40}, {2, 0, 1, 140, 40}, {4, 0, 3, 240, 40}, {5, 1, 0, 40, 140}});
  EXPECT_EQ(At(overlay, 90, 40), kGreen);
  EXPECT_EQ(At(overlay, 40, 90), kBlue);
  EXPECT_EQ(At(overlay, 190, 40), kGrey);
  EXPECT_EQ(At(overlay, 90, 90), kGrey);
}

TEST(Overlay, MarksThePositionItself) {
  const ColorPicture overlay = DrawOverlay(FlatPicture(100, 100, 90), {{1, 0, 0, 50, 50}});
  EXPECT_EQ(At(overlay, 50, 50), kRed);
  EXPECT_EQ(At(overlay, 57, 50), kRed);   // the ring
  EXPECT_EQ(At(overlay, 55, 50), kGrey);  // between cross and ring
}

TEST(Overlay, DrawsAFilledPointApart) {
  const Picture picture = FlatPicture(300, 200, 90);
  const ColorPicture seen =
      DrawOverlay(picture, {{1, 0, 0, 40, 40, PointKind::kSeen}, {2, 0, 1, 140, 40}});
  const ColorPicture filled =
      DrawOverlay(picture, {{1, 0, 0, 40, 40}, {2, 0, 1, 140, 40, PointKind::kFilled}});
  EXPECT_EQ(CountOf(seen, kOrange), 0);
  EXPECT_EQ(At(filled, 40, 40), kRed);
  EXPECT_EQ(At(filled, 140, 40), kOrange);
  // Ring and line have gaps.
  EXPECT_LT(CountOf(filled, kOrange), 0.8 * CountOf(filled, kRed));
  EXPECT_LT(CountOf(filled, kGreen), 0.7 * CountOf(seen, kGreen));
}

TEST(Overlay, LabelsGrowWithThePicture) {
  const int small = CountOf(DrawOverlay(FlatPicture(400, 400, 90), {{7, 0, 0, 99, 99}}), kYellow);
  const int large = CountOf(DrawOverlay(FlatPicture(800, 800, 90), {{7, 0, 0, 99, 99}}), kYellow);
  EXPECT_EQ(small, 11);  // pixels of the digit 7
  EXPECT_EQ(large, 4 * small);
}

TEST(Overlay, DrawsWholeLabelsInTheLastCorner) {
  const ColorPicture overlay = DrawOverlay(FlatPicture(100, 100, 90), {{7, 0, 0, 99, 99}});
  EXPECT_EQ(CountOf(overlay, kYellow), 11);
}

TEST(Overlay, LeavesOutPointsOutsideThePicture) {
  const ColorPicture overlay = DrawOverlay(
      FlatPicture(60, 60, 90), {{1, 0, 0, -1, 5}, {2, 0, 1, 5, 1e9}, {3, 0, 2, NAN, 5}});
  EXPECT_EQ(CountOf(overlay, kGrey), 60 * 60);
}

// A pixel drawn is a thousandth of a pixel: 9 and 6 of them to either side.
TEST(Overlay, DrawsTheCovarianceEnlarged) {
  const ColorPicture overlay =
      DrawOverlay(FlatPicture(100, 100, 90),
                  {{1, 0, 0, 50, 50, PointKind::kMeasured, Covariance{81e-6, 0, 36e-6}}});
  constexpr Rgb kCyan{0, 220, 220};
  EXPECT_EQ(At(overlay, 59, 50), kCyan);
  EXPECT_EQ(At(overlay, 41, 50), kCyan);
  EXPECT_EQ(At(overlay, 50, 56), kCyan);
  EXPECT_EQ(At(overlay, 50, 44), kCyan);
  EXPECT_NE(At(overlay, 50, 59), kCyan);
}

}  // namespace
}  // namespace quorvex::tests
