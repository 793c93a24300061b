#include "crossmark/hough_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "tests/support/patches.h"

namespace quorvex::tests {
namespace {

using Pixel = std::pair<int, int>;  // column, row
using PixelList = std::vector<Pixel>;

constexpr int kSize = 160;  // pixels
constexpr int kStroke = 255;

GrayImage BlackImage(int size = kSize) { return GrayImage(size, size); }

PixelList PixelsOf(const LineSegment& line) {
  PixelList pixels;
  for (const PointF& point : line.points) {
    pixels.emplace_back(static_cast<int>(point.x), static_cast<int>(point.y));
  }
  return pixels;
}

std::vector<PixelList> Lines(const GrayImage& image, int strokeValue = kStroke) {
  LineSegmentList lines;
  HoughLines(image.Data(), image.Width(), image.Height(), strokeValue, lines);
  std::vector<PixelList> pixels;
  for (const LineSegment& line : lines) {
    pixels.push_back(PixelsOf(line));
  }
  return pixels;
}

PixelList RowPixels(int y, int firstX, int lastX) {
  PixelList pixels;
  for (int x = firstX; x <= lastX; ++x) {
    pixels.emplace_back(x, y);
  }
  return pixels;
}

bool Contains(const PixelList& pixels, Pixel pixel) {
  return std::find(pixels.begin(), pixels.end(), pixel) != pixels.end();
}

TEST(HoughLines, ImageWithoutStrokesLeavesTheListAlone) {
  LineSegmentList lines(1);
  lines[0].angle = 7.0f;
  HoughLines(BlackImage().Data(), kSize, kSize, kStroke, lines);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].angle, 7.0f);
}

TEST(HoughLines, ThirtyPixelsAreTooFew) {
  GrayImage image = BlackImage();
  DrawRow(image, 50, 10, 39, kStroke);
  EXPECT_TRUE(Lines(image).empty());
}

TEST(HoughLines, ThirtyOnePixelsMakeALine) {
  GrayImage image = BlackImage();
  DrawRow(image, 50, 10, 40, kStroke);
  EXPECT_EQ(Lines(image), (std::vector<PixelList>{RowPixels(50, 10, 40)}));
}

TEST(HoughLines, LinesAreAppendedBehindWhatTheListHolds) {
  GrayImage image = BlackImage();
  DrawRow(image, 50, 10, 40, kStroke);
  LineSegmentList lines(1);
  HoughLines(image.Data(), kSize, kSize, kStroke, lines);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_TRUE(lines[0].points.empty());
  EXPECT_EQ(lines[1].points.size(), 31u);
}

TEST(HoughLines, LinesHaveTheirPixelsAlone) {
  GrayImage image = BlackImage();
  DrawRow(image, 50, 10, 70, kStroke);
  LineSegmentList lines;
  HoughLines(image.Data(), kSize, kSize, kStroke, lines);
  ASSERT_EQ(lines.size(), 1u);
  const LineSegment& line = lines[0];
  for (const float value :
       {line.a, line.b, line.c, line.angle, line.start.x, line.start.y, line.end.x, line.end.y}) {
    EXPECT_EQ(value, 0.0f);
  }
}

TEST(HoughLines, StrokeValueIsAParameter) {
  GrayImage image = UniformImage(kSize, kSize, 255);
  DrawRow(image, 50, 10, 40, 0);
  EXPECT_EQ(Lines(image, 0), (std::vector<PixelList>{RowPixels(50, 10, 40)}));
}

TEST(HoughLines, OtherLevelsAreNoStrokes) {
  GrayImage image = BlackImage();
  DrawRow(image, 50, 10, 80, 254);
  EXPECT_TRUE(Lines(image).empty());
}

TEST(HoughLines, StrokeInTheLastColumnIsNeverSeen) {
  GrayImage image = BlackImage();
  DrawColumn(image, kSize - 1, 0, kSize - 1, kStroke);
  EXPECT_TRUE(Lines(image).empty());
}

TEST(HoughLines, PixelInTheLastColumnNeitherVotesNorJoins) {
  GrayImage image = BlackImage();
  DrawRow(image, 50, kSize - 31, kSize - 1, kStroke);
  EXPECT_TRUE(Lines(image).empty());
  DrawRow(image, 50, kSize - 32, kSize - 1, kStroke);
  EXPECT_EQ(Lines(image), (std::vector<PixelList>{RowPixels(50, kSize - 32, kSize - 2)}));
}

TEST(HoughLines, FirstColumnAndFirstAndLastRowAreSeen) {
  GrayImage image = BlackImage();
  DrawRow(image, 0, 0, 40, kStroke);
  DrawRow(image, kSize - 1, 0, 30, kStroke);
  EXPECT_EQ(Lines(image),
            (std::vector<PixelList>{RowPixels(0, 0, 40), RowPixels(kSize - 1, 0, 30)}));
}

TEST(HoughLines, StrongestLineComesFirst) {
  GrayImage image = BlackImage();
  DrawRow(image, 20, 10, 50, kStroke);
  DrawRow(image, 130, 10, 60, kStroke);
  EXPECT_EQ(Lines(image), (std::vector<PixelList>{RowPixels(130, 10, 60), RowPixels(20, 10, 50)}));
}

TEST(HoughLines, NearStrokesOfOneDirectionGiveOneLine) {
  GrayImage image = BlackImage();
  DrawRow(image, 50, 10, 50, kStroke);
  DrawRow(image, 80, 10, 49, kStroke);
  EXPECT_EQ(Lines(image), (std::vector<PixelList>{RowPixels(50, 10, 50)}));
}

TEST(HoughLines, CloseStrokesMoreThanTenDegreesApartGiveTwoLines) {
  GrayImage image = BlackImage();
  DrawRow(image, 80, 5, 105, kStroke);
  for (int x = 5; x <= 100; ++x) {
    PixelAt(image, x, 40 + x / 2) = kStroke;  // 26.6 degrees
  }
  EXPECT_EQ(Lines(image).size(), 2u);
}

TEST(HoughLines, PlusWithALongVerticalStrokeGivesThreeLines) {
  // The vertical stroke peaks both at degree 0 and near degree 179, and degrees do not wrap around.
  GrayImage image = BlackImage();
  DrawRow(image, 80, 20, 140, kStroke);
  DrawColumn(image, 80, 60, 100, kStroke);
  const std::vector<PixelList> lines = Lines(image);
  ASSERT_EQ(lines.size(), 3u);
  int horizontal = 0;
  int vertical = 0;
  for (const PixelList& line : lines) {
    EXPECT_TRUE(Contains(line, {80, 80}));
    horizontal += Contains(line, {20, 80}) && Contains(line, {140, 80});
    vertical += Contains(line, {80, 60}) && Contains(line, {80, 100});
  }
  EXPECT_EQ(horizontal, 1);
  EXPECT_EQ(vertical, 2);
}

TEST(HoughLines, PointsStandRowByRow) {
  GrayImage image = BlackImage();
  for (int n = 0; n < 60; ++n) {
    PixelAt(image, 100 - n, 20 + n) = kStroke;
  }
  DrawRow(image, 50, 60, 70, kStroke);
  const std::vector<PixelList> lines = Lines(image);
  ASSERT_EQ(lines.size(), 1u);
  PixelList sorted = lines[0];
  std::sort(sorted.begin(), sorted.end(), [](Pixel left, Pixel right) {
    return std::make_pair(left.second, left.first) < std::make_pair(right.second, right.first);
  });
  EXPECT_EQ(lines[0], sorted);
  EXPECT_GE(lines[0].size(), 60u);
}

TEST(HoughLines, PiIsCutShort) {
  // The bin of all pixels from 38 to 40 before the origin, as degree 120 sees them. (80, 0) stands
  // at exactly 40 and (76, 0) at 38; as the angle is a trace too small, both count as nearer.
  GrayImage image = BlackImage();
  for (int y = 0; y < kSize; ++y) {
    for (int x = 0; x < kSize; ++x) {
      const double before = 0.5 * x - 0.8660254037844386 * y;
      if (before >= 38.0 && before < 40.0) {
        PixelAt(image, x, y) = kStroke;
      }
    }
  }
  PixelAt(image, 80, 0) = kStroke;
  const std::vector<PixelList> lines = Lines(image);
  ASSERT_FALSE(lines.empty());
  EXPECT_TRUE(Contains(lines[0], {80, 0}));
  EXPECT_TRUE(Contains(lines[0], {79, 0}));
  EXPECT_FALSE(Contains(lines[0], {76, 0}));
}

// Of so narrow an image the last row lies as far from the origin as the diagonal is long: in the
// last bin.
TEST(HoughLines, LineInTheLastBinIsFoundOnce) {
  GrayImage image(141, 10'001);
  DrawRow(image, 10'000, 0, 139, kStroke);
  EXPECT_EQ(Lines(image), (std::vector<PixelList>{RowPixels(10'000, 0, 139)}));
}

TEST(HoughLines, TinyImagesAreSearched) {
  for (const int size : {1, 2, 3, 4}) {
    EXPECT_TRUE(Lines(UniformImage(size, size, kStroke)).empty()) << size;
  }
  EXPECT_TRUE(Lines(UniformImage(1, 200, kStroke)).empty());
  const GrayImage narrow = UniformImage(2, 31, kStroke);
  EXPECT_FALSE(Lines(narrow).empty());
}

}  // namespace
}  // namespace quorvex::tests
