#include "crossmark/brightest_window.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "tests/support/patches.h"

namespace quorvex::tests {
namespace {

constexpr int kUntouched = -12345;

struct Found {
  bool isFound;
  int x;
  int y;
};

bool operator==(const Found& left, const Found& right) {
  return left.isFound == right.isFound && left.x == right.x && left.y == right.y;
}

std::ostream& operator<<(std::ostream& stream, const Found& found) {
  return stream << (found.isFound ? "found " : "nothing ") << found.x << ' ' << found.y;
}

constexpr Found kNothing = {false, kUntouched, kUntouched};

Found Find(const GrayImage& image, int x, int y, int sizeX, int sizeY) {
  Found found = kNothing;
  found.isFound = FindBrightestWindow(image.Data(), image.Width(), image.Height(), x, y, sizeX,
                                      sizeY, found.x, found.y);
  return found;
}

// A black image with one pixel of that level.
GrayImage Spot(int x, int y, unsigned char level = 255) {
  GrayImage image(100, 80);
  PixelAt(image, x, y) = level;
  return image;
}

// Every candidate's window, pixel by pixel.
Found FindPlainly(GrayImage image, int x, int y, int sizeX, int sizeY) {
  Found best = kNothing;
  int bestSum = 0;
  for (int r = 0; r < sizeY - 20; ++r) {
    for (int c = 0; c < sizeX - 20; ++c) {
      const int candidateX = x + c - (sizeX - 20) / 2;
      const int candidateY = y + r - (sizeY - 20) / 2;
      int sum = 0;
      for (int dy = -10; dy <= 9; ++dy) {
        for (int dx = -10; dx <= 9; ++dx) {
          if (IsInside(candidateX + dx, candidateY + dy, image.Width(), image.Height())) {
            sum += PixelAt(image, candidateX + dx, candidateY + dy);
          }
        }
      }
      if (sum > bestSum) {
        bestSum = sum;
        best = {true, candidateX, candidateY};
      }
    }
  }
  return best;
}

TEST(FindBrightestWindow, BlackNeighbourhoodFailsAndTouchesNothing) {
  EXPECT_EQ(Find(GrayImage(100, 80), 50, 40, 100, 100), kNothing);
}

TEST(FindBrightestWindow, SumOfOneIsEnough) {
  EXPECT_EQ(Find(Spot(50, 40, 1), 50, 40, 21, 21), (Found{true, 50, 40}));
}

TEST(FindBrightestWindow, WindowReachesTenPixelsBeforeAndNineBehindItsCentre) {
  EXPECT_TRUE(Find(Spot(40, 30), 50, 40, 21, 21).isFound);
  EXPECT_TRUE(Find(Spot(59, 49), 50, 40, 21, 21).isFound);
  EXPECT_FALSE(Find(Spot(39, 40), 50, 40, 21, 21).isFound);
  EXPECT_FALSE(Find(Spot(60, 40), 50, 40, 21, 21).isFound);
  EXPECT_FALSE(Find(Spot(50, 29), 50, 40, 21, 21).isFound);
  EXPECT_FALSE(Find(Spot(50, 50), 50, 40, 21, 21).isFound);
}

TEST(FindBrightestWindow, FirstOfEqualWindowsWins) {
  // Every centre from (41, 31) to (60, 50) sees the spot.
  EXPECT_EQ(Find(Spot(50, 40), 50, 40, 100, 100), (Found{true, 41, 31}));
}

TEST(FindBrightestWindow, RowsComeBeforeColumns) {
  GrayImage image = Spot(70, 30);
  PixelAt(image, 30, 31) = 255;
  EXPECT_EQ(Find(image, 50, 40, 100, 100), (Found{true, 61, 21}));
}

TEST(FindBrightestWindow, StrictlyBrighterWindowReplacesAnEarlierOne) {
  GrayImage image = Spot(30, 30, 254);
  PixelAt(image, 70, 50) = 255;
  EXPECT_EQ(Find(image, 50, 40, 100, 100), (Found{true, 61, 41}));
}

TEST(FindBrightestWindow, WindowHangingOverTheImageEdgeCounts) {
  EXPECT_EQ(Find(Spot(0, 0), 0, 0, 100, 100), (Found{true, -9, -9}));
  EXPECT_EQ(Find(Spot(99, 79), 109, 89, 21, 21), (Found{true, 109, 89}));
}

TEST(FindBrightestWindow, SearchAreaIsTwentyPixelsSmallerThanItsSize) {
  const GrayImage image = UniformImage(100, 80, 255);
  EXPECT_EQ(Find(image, 50, 40, 21, 21), (Found{true, 50, 40}));
  EXPECT_EQ(Find(image, 50, 40, 22, 22), (Found{true, 49, 39}));
  EXPECT_EQ(Find(image, 50, 40, 23, 25), (Found{true, 49, 38}));
  // Centres run from 10 to 89 for the size 100; only the last one sees a spot at 98.
  EXPECT_TRUE(Find(Spot(98, 40), 50, 40, 100, 100).isFound);
  EXPECT_FALSE(Find(Spot(99, 40), 50, 40, 100, 100).isFound);
  EXPECT_TRUE(Find(Spot(0, 40), 50, 40, 100, 100).isFound);
  EXPECT_FALSE(Find(Spot(0, 40), 51, 40, 100, 100).isFound);
}

TEST(FindBrightestWindow, SizeOfTwentyOrLessFails) {
  const GrayImage image = UniformImage(100, 80, 255);
  EXPECT_EQ(Find(image, 50, 40, 100, 20), kNothing);
  EXPECT_EQ(Find(image, 50, 40, 20, 100), kNothing);
  EXPECT_EQ(Find(image, 50, 40, -5, std::numeric_limits<int>::min()), kNothing);
}

TEST(FindBrightestWindow, PositionsFarOutsideFindNothing) {
  constexpr int kLowest = std::numeric_limits<int>::min();
  constexpr int kHighest = std::numeric_limits<int>::max();
  const GrayImage image = UniformImage(100, 80, 255);
  EXPECT_EQ(Find(image, kLowest, kHighest, 100, 100), kNothing);
  EXPECT_EQ(Find(image, kHighest, kLowest, 100, 100), kNothing);
}

TEST(FindBrightestWindow, EqualsThePlainSearch) {
  const Bytes levelSets[] = {{0, 255},     {0, 0, 0, 0, 0, 0, 0, 1}, {7}, {0}, {254, 255},
                             {0, 100, 200}};
  for (unsigned seed = 0; seed < 60; ++seed) {
    std::mt19937 random(seed);
    const int width = 1 + static_cast<int>(random() % 48);
    const int height = 1 + static_cast<int>(random() % 40);
    const GrayImage image = RandomImage(width, height, levelSets[seed % 6], random);
    const int x = static_cast<int>(random() % 80) - 20;
    const int y = static_cast<int>(random() % 80) - 20;
    const int sizeX = 15 + static_cast<int>(random() % 40);
    const int sizeY = 15 + static_cast<int>(random() % 40);
    EXPECT_EQ(Find(image, x, y, sizeX, sizeY), FindPlainly(image, x, y, sizeX, sizeY))
        << "seed " << seed << ", " << width << " x " << height;
  }
}

}  // namespace
}  // namespace quorvex::tests
