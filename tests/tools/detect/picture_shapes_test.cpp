#include "tools/detect/picture_shapes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "tests/support/test_files.h"

namespace quorvex::tests {

using namespace tools;

namespace {

// A picture in which the pixels of a shape are dark; positions count from its middle, turned and
// slanted as a lens or a tilt would.
Picture Draw(const std::function<bool(double x, double y)>& isInk) {
  Picture picture = FlatPicture(160, 160, 200);
  for (int y = 0; y < 160; ++y) {
    for (int x = 0; x < 160; ++x) {
      const double right = x - 80;
      const double down = y - 80;
      const double slanted = right * 0.8 + down * 0.3;
      if (isInk(slanted * 0.95 + down * 0.31, down * 0.95 - slanted * 0.31)) picture.At(x, y) = 10;
    }
  }
  return picture;
}

ShapeKind KindOf(const Picture& picture) {
  const std::vector<PictureShape> shapes = FindShapes(picture, Foreground::kDark, 80, 1);
  EXPECT_EQ(shapes.size(), 1u);
  return shapes.empty() ? ShapeKind::kOther : shapes.front().kind;
}

bool IsCross(double x, double y) {
  return std::min(std::abs(x), std::abs(y)) < 2 && std::max(std::abs(x), std::abs(y)) < 45;
}

TEST(FindShapes, TellsShapesApart) {
  EXPECT_EQ(KindOf(Draw(IsCross)), ShapeKind::kCross);
  EXPECT_EQ(KindOf(Draw([](double x, double y) { return std::hypot(x, y) < 20; })),
            ShapeKind::kDot);
  EXPECT_EQ(KindOf(Draw(
                [](double x, double y) { return std::hypot(x, y) < 30 && std::hypot(x, y) > 25; })),
            ShapeKind::kRing);
  EXPECT_EQ(KindOf(Draw([](double x, double y) { return std::abs(x) < 20 && std::abs(y) < 20; })),
            ShapeKind::kSquare);
  EXPECT_EQ(KindOf(Draw([](double x, double y) { return std::abs(x) < 45 && std::abs(y) < 2; })),
            ShapeKind::kOther);
}

TEST(FindShapes, MeasuresBoxAndMiddle) {
  Picture picture = FlatPicture(30, 20, 100);
  FillBox(picture, 4, 5, 9, 8, 79);
  const std::vector<PictureShape> shapes = FindShapes(picture, Foreground::kDark, 80, 15);
  ASSERT_EQ(shapes.size(), 1u);
  EXPECT_EQ(shapes[0].area, 15);
  EXPECT_EQ(shapes[0].left, 4);
  EXPECT_EQ(shapes[0].right, 8);
  EXPECT_EQ(shapes[0].top, 5);
  EXPECT_EQ(shapes[0].bottom, 7);
  EXPECT_EQ(shapes[0].x, 6);
  EXPECT_EQ(shapes[0].y, 6);
  EXPECT_EQ(shapes[0].Extent(), 5);
  EXPECT_TRUE(FindShapes(picture, Foreground::kDark, 80, 16).empty());
  EXPECT_TRUE(FindShapes(picture, Foreground::kDark, 79, 1).empty());
}

TEST(FindShapes, PixelsThatShareACornerAreApart) {
  Picture picture = FlatPicture(10, 10, 0);
  picture.At(3, 3) = picture.At(4, 4) = 255;
  EXPECT_EQ(FindShapes(picture, Foreground::kBright, 255, 1).size(), 2u);
  picture.At(3, 4) = 255;
  EXPECT_EQ(FindShapes(picture, Foreground::kBright, 255, 1).size(), 1u);
}

TEST(CountShapes, CountsBothKindsOfForeground) {
  Picture picture = Draw(IsCross);
  EXPECT_EQ(CountShapes(picture, Foreground::kDark).crosses, 1);
  EXPECT_EQ(CountShapes(picture, Foreground::kBright).crosses, 0);
  for (std::uint8_t& level : picture.pixels) level = static_cast<std::uint8_t>(255 - level);
  EXPECT_EQ(CountShapes(picture, Foreground::kBright).crosses, 1);
}

TEST(CountShapes, WhatReachesTheBorderDoesNotCount) {
  Picture picture = FlatPicture(100, 100, 200);
  FillBox(picture, 0, 40, 20, 60, 10);
  EXPECT_EQ(CountShapes(picture, Foreground::kDark).squares, 0);
  FillBox(picture, 0, 40, 1, 60, 200);
  EXPECT_EQ(CountShapes(picture, Foreground::kDark).squares, 1);
}

TEST(CountShapes, WhatOneLevelShowsDoesNotCount) {
  Picture picture = FlatPicture(100, 100, 180);
  FillBox(picture, 40, 40, 60, 60, 130);  // dark at 160 only
  EXPECT_EQ(CountShapes(picture, Foreground::kDark).squares, 0);
  FillBox(picture, 40, 40, 60, 60, 100);  // dark at 120, too
  EXPECT_EQ(CountShapes(picture, Foreground::kDark).squares, 1);
}

TEST(CountShapes, SquaresFarApartAreNoChessboard) {
  Picture picture = FlatPicture(400, 400, 200);
  for (const int x : {50, 300}) {
    for (const int y : {50, 300}) FillBox(picture, x, y, x + 20, y + 20, 10);
  }
  EXPECT_EQ(CountShapes(picture, Foreground::kDark).squares, 0);
}

}  // namespace
}  // namespace quorvex::tests
