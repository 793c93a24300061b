// The Hough lines against a search that is written down plainly: all cells in one ordered map.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <map>
#include <random>
#include <utility>

#include "crossmark/hough_lines.h"
#include "tests/support/patches.h"

namespace quorvex::tests {
namespace {

using Cell = std::pair<int, int>;  // degree, distance index
using PixelList = std::vector<std::pair<int, int>>;

class PlainSearch {
 public:
  explicit PlainSearch(const GrayImage& image)
      : image_(image),
        cells_(static_cast<int>(std::sqrt(static_cast<double>(image.Width()) * image.Width() +
                                          static_cast<double>(image.Height()) * image.Height())) +
               1) {}

  std::vector<PixelList> Lines() {
    std::map<Cell, int> votes;  // in the order of the scan
    for (const auto& [x, y] : Strokes()) {
      for (int degree = 0; degree < 180; ++degree) {
        ++votes[{degree, Index(x, y, degree)}];
      }
    }
    std::vector<PixelList> lines;
    for (;;) {
      Cell best = {-1, -1};
      int most = 30;
      for (const auto& [cell, count] : votes) {
        if (count > most) {
          most = count;
          best = cell;
        }
      }
      if (best.first < 0) {
        return lines;
      }
      lines.push_back(On(best));
      for (auto& [cell, count] : votes) {
        if (std::abs(cell.first - best.first) <= 9 && std::abs(cell.second - best.second) <= 29) {
          count = 0;
        }
      }
    }
  }

 private:
  PixelList Strokes() const {
    PixelList strokes;
    for (int y = 0; y < image_.Height(); ++y) {
      for (int x = 0; x + 1 < image_.Width(); ++x) {
        if (image_.Data()[y * image_.Width() + x] == 255) {
          strokes.emplace_back(x, y);
        }
      }
    }
    return strokes;
  }

  int Index(int x, int y, int degree) const {
    const float cosine = static_cast<float>(std::cos(degree * 3.1415926 / 180.0));
    const float sine = static_cast<float>(std::sin(degree * 3.1415926 / 180.0));
    const float along = static_cast<float>(x) * cosine;
    const float across = static_cast<float>(y) * sine;
    const float distance = along + across;
    return static_cast<int>(distance) / 2 + cells_ / 2;
  }

  PixelList On(Cell cell) const {
    PixelList pixels;
    for (const auto& [x, y] : Strokes()) {
      if (Index(x, y, cell.first) == cell.second) {
        pixels.emplace_back(x, y);
      }
    }
    return pixels;
  }

  const GrayImage& image_;
  int cells_;
};

std::vector<PixelList> FoundLines(const GrayImage& image) {
  LineSegmentList lines;
  HoughLines(image.Data(), image.Width(), image.Height(), 255, lines);
  std::vector<PixelList> pixels;
  for (const LineSegment& line : lines) {
    pixels.emplace_back();
    for (const PointF& point : line.points) {
      pixels.back().emplace_back(static_cast<int>(point.x), static_cast<int>(point.y));
    }
  }
  return pixels;
}

// A stroke one pixel wide, `length` pixels to each side of its middle.
void DrawStroke(GrayImage& image, double x, double y, double degrees, int length) {
  const double angle = degrees * 3.14159265358979 / 180.0;
  for (int n = -length; n <= length; ++n) {
    const int column = static_cast<int>(std::lround(x + n * std::cos(angle)));
    const int row = static_cast<int>(std::lround(y + n * std::sin(angle)));
    if (IsInside(column, row, image.Width(), image.Height())) {
      PixelAt(image, column, row) = 255;
    }
  }
}

TEST(HoughLinesPlain, StrokesAtAllAnglesGiveTheSameLines) {
  for (int degrees = 0; degrees < 180; degrees += 7) {
    GrayImage image(160, 160);
    DrawStroke(image, 80, 80, degrees, 60);
    DrawStroke(image, 70, 85, degrees + 75, 40);
    EXPECT_EQ(FoundLines(image), PlainSearch(image).Lines()) << degrees << " degrees";
  }
}

TEST(HoughLinesPlain, ParallelStrokesMergeUpToTheSameDistance) {
  for (int distance = 50; distance <= 70; ++distance) {
    GrayImage image(200, 200);
    DrawStroke(image, 60, 30, 0, 20);
    DrawStroke(image, 60, 30 + distance, 0, 18);
    EXPECT_EQ(FoundLines(image), PlainSearch(image).Lines()) << distance << " pixels";
  }
}

TEST(HoughLinesPlain, CrossingStrokesMergeUpToTheSameAngle) {
  for (int degrees = 2; degrees <= 24; ++degrees) {
    GrayImage image(200, 200);
    DrawStroke(image, 90, 80, 40, 60);
    DrawStroke(image, 100, 90, 40 + degrees, 50);
    EXPECT_EQ(FoundLines(image), PlainSearch(image).Lines()) << degrees << " degrees";
  }
}

TEST(HoughLinesPlain, NoiseGivesTheSameLines) {
  for (unsigned seed = 0; seed < 8; ++seed) {
    std::mt19937 random(seed);
    const int width = 30 + static_cast<int>(random() % 60);
    const int height = 30 + static_cast<int>(random() % 60);
    const GrayImage image = RandomImage(width, height, {0, 255, 0, 0, 254}, random);
    EXPECT_EQ(FoundLines(image), PlainSearch(image).Lines())
        << "seed " << seed << ", " << width << " x " << height;
  }
}

TEST(HoughLinesPlain, WhiteImageGivesTheSameLines) {
  const GrayImage image = UniformImage(64, 48, 255);
  EXPECT_EQ(FoundLines(image), PlainSearch(image).Lines());
}

}  // namespace
}  // namespace quorvex::tests
