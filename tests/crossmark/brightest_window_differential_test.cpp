#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "base/pixel_position.h"
#include "crossmark/brightest_window.h"
#include "tests/reference/crossmark.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {
namespace {

struct Search {
  int x;
  int y;
  int sizeX;
  int sizeY;
};

std::string CompareForms(const TestImage& image, const Search& search) {
  PixelPosition plainFound{-77, 77};
  PixelPosition fastFound = plainFound;
  const bool plainResult =
      plain::FindBrightestWindow(image.Data(), image.width, image.height, search.x, search.y,
                                 search.sizeX, search.sizeY, plainFound.x, plainFound.y);
  const bool fastResult =
      FindBrightestWindow(image.Data(), image.width, image.height, search.x, search.y, search.sizeX,
                          search.sizeY, fastFound.x, fastFound.y);
  if (plainResult == fastResult && plainFound == fastFound) {
    return "";
  }
  return std::to_string(image.width) + " x " + std::to_string(image.height) + ", around (" +
         std::to_string(search.x) + ", " + std::to_string(search.y) + ") in " +
         std::to_string(search.sizeX) + " x " + std::to_string(search.sizeY) + ": (" +
         std::to_string(fastFound.x) + ", " + std::to_string(fastFound.y) + "), plain (" +
         std::to_string(plainFound.x) + ", " + std::to_string(plainFound.y) + ")";
}

std::string SameWindow(CaseRandom& random) {
  const LevelList levels = random.OneIn(2) ? LevelList{0, 255} : LevelList{0, 1, 2, 254, 255};
  const TestImage image = RandomImage(random, RandomSize(random, 90), levels);
  const int x = random.Between(-40, image.width + 40);
  const int y = random.Between(-40, image.height + 40);
  const int sizeX = random.Between(17, random.OneIn(20) ? 120 : 44);
  const int sizeY = random.OneIn(2) ? sizeX : random.Between(17, 44);
  return CompareForms(image, {x, y, sizeX, sizeY});
}
DIFFERENTIAL_TEST(BrightestWindowDifferentialTest, SameWindow, kCases);

std::string SameWindowFarOutsideAndInNoArea(CaseRandom& random) {
  constexpr int kLowest = std::numeric_limits<int>::min();
  constexpr int kHighest = std::numeric_limits<int>::max();
  const TestImage image = RandomImage(random, RandomSize(random, 40), {255, 0});
  const int x = random.OneOf({kLowest, kHighest, -1'000'000'000, 0, 20, image.width});
  const int y = random.OneOf({kLowest, kHighest, 1'000'000'000, 0, 20, image.height});
  const int sizeX = random.OneOf({kLowest, -1, 0, 19, 20, 21, 22, 60});
  const int sizeY = random.OneOf({kLowest, -1, 0, 19, 20, 21, 22, 60});
  return CompareForms(image, {x, y, sizeX, sizeY});
}
DIFFERENTIAL_TEST(BrightestWindowDifferentialTest, SameWindowFarOutsideAndInNoArea, 1'000);

std::string SameWindowInTheAreaOfTheCentre(CaseRandom& random) {
  TestImage image = FlatImage({560, 540}, 0);
  for (int i = random.Between(1, 9); i > 0; --i) {
    const int x = random.Below(560);
    const int y = random.Below(540);
    DrawRandomCross(random, x, y, 255, image);
  }
  return CompareForms(image, {280, 270, 500, 500});
}
DIFFERENTIAL_TEST(BrightestWindowDifferentialTest, SameWindowInTheAreaOfTheCentre, 20);

}  // namespace
}  // namespace quorvex::tests
