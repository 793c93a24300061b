#include <gtest/gtest.h>

#include <string>

#include "preprocess/component_removal.h"
#include "tests/reference/preprocess.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {
namespace {

std::string CompareForms(const TestImage& image) {
  return CompareInPlace(image, plain::RemoveLargeComponents, RemoveLargeComponents);
}

std::string SameBytes(CaseRandom& random) {
  const LevelList levels = random.OneIn(2) ? LevelList{0, 255} : LevelList{255, 0, 128, 254, 1};
  return CompareForms(RandomImage(random, RandomSize(random, 90), levels, RowLength::kBitmap));
}
DIFFERENTIAL_TEST(ComponentRemovalDifferentialTest, SameBytes, kCases);

// Boxes, frames and stairs around 400 pixels of extent and 5,000 of area, alone or touching.
std::string SameBytesAroundTheLimits(CaseRandom& random) {
  const bool isTall = random.OneIn(2);
  const int across = random.Between(12, 90);
  TestImage image =
      FlatImage(isTall ? ImageSize{(across + 3) / 4 * 4, 412} : ImageSize{412, across}, 0);
  for (int i = random.Between(1, 5); i > 0; --i) {
    const int length = random.Between(397, 403);
    const int thickness = random.Between(1, 14);
    const int along = random.Below(10);
    const int offset = random.Below(across);
    const int slant = random.OneOf({0, 0, 1, random.Below(across)});
    if (isTall) {
      DrawLine(offset, along, slant == 0 ? offset : slant, along + length - 1, thickness, 255,
               image);
    } else {
      DrawLine(along, offset, along + length - 1, slant == 0 ? offset : slant, thickness, 255,
               image);
    }
  }
  for (int i = random.Below(30); i > 0; --i) {
    const int x = random.Below(image.width);
    const int y = random.Below(image.height);
    image.At(x, y) = random.OneOf<unsigned char>({0, 255, 128});
  }
  return CompareForms(image);
}
DIFFERENTIAL_TEST(ComponentRemovalDifferentialTest, SameBytesAroundTheLimits, 400);

std::string SameBytesOfAreasAroundTheLimit(CaseRandom& random) {
  TestImage image = FlatImage({120, 104}, 0);
  const int columns = random.Between(48, 104);
  const int area = random.Between(4'995, 5'005);
  for (int i = 0; i < area; ++i) {
    image.At(8 + i % columns, i / columns < 104 ? i / columns : 103) = 255;
  }
  // A few holes and a few pixels beside.
  for (int i = random.Below(4); i > 0; --i) {
    const int x = random.Below(120);
    const int y = random.Below(104);
    image.At(x, y) = random.OneOf<unsigned char>({0, 255});
  }
  return CompareForms(image);
}
DIFFERENTIAL_TEST(ComponentRemovalDifferentialTest, SameBytesOfAreasAroundTheLimit, 200);

// Larger than what one search reaches before it gives up.
TEST(ComponentRemovalDifferentialTest, SameBytesOfAHugeComponent) {
  TestImage image = FlatImage({3'200, 3'200}, 255);
  image.At(3'000, 3'199) = 0;
  EXPECT_EQ(CompareForms(image), "");
}

}  // namespace
}  // namespace quorvex::tests
