#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "crossmark/hough_lines.h"
#include "tests/reference/crossmark.h"
#include "tests/support/float_difference.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {
namespace {

std::string CompareForms(const TestImage& image, int strokeValue) {
  LineSegmentList plainLines(1);  // what the list held stays
  LineSegmentList fastLines(1);
  plain::HoughLines(image.Data(), image.width, image.height, strokeValue, plainLines);
  HoughLines(image.Data(), image.width, image.height, strokeValue, fastLines);
  const std::string difference = LinesDifference(plainLines, fastLines);
  return difference.empty() ? ""
                            : std::to_string(image.width) + " x " + std::to_string(image.height) +
                                  ": " + difference;
}

std::string SameLinesOfSmallImages(CaseRandom& random) {
  const LevelList levels = random.OneIn(2) ? LevelList{0, 255} : LevelList{255, 0, 128};
  const TestImage image = RandomImage(random, RandomSize(random, 56), levels);
  const int strokeValue = random.OneOf({255, 255, 0, 0, 128, 256, -1});
  return CompareForms(image, strokeValue);
}
DIFFERENTIAL_TEST(HoughLinesDifferentialTest, SameLinesOfSmallImages, kCases);

// Strokes of 29 to 33 pixels: a line needs more than 30.
std::string SameLinesAroundTheNumberOfVotes(CaseRandom& random) {
  TestImage image = FlatImage({96, 80}, 0);
  for (int i = random.Between(1, 6); i > 0; --i) {
    const int x = random.Below(96);
    const int y = random.Below(80);
    const int dx = random.Between(-32, 32);
    const int dy = random.OneOf({-32, -30, -29, 29, 30, 31, 32});
    const bool isFlat = random.OneIn(2);
    DrawLine(x, y, x + (isFlat ? dy : dx), y + (isFlat ? dx : dy), random.Between(1, 2), 255,
             image);
  }
  return CompareForms(image, 255);
}
DIFFERENTIAL_TEST(HoughLinesDifferentialTest, SameLinesAroundTheNumberOfVotes, 2'000);

std::string SameLinesOfPatches(CaseRandom& random) {
  const int size = random.OneOf({160, 200});
  TestImage image = FlatImage({size, size}, 0);
  for (int i = random.Between(1, 5); i > 0; --i) {
    const int x = random.Below(size);
    const int y = random.Below(size);
    DrawRandomCross(random, x, y, 255, image);
  }
  for (int i = random.OneOf({0, 50, 2'000}); i > 0; --i) {
    const int x = random.Below(size);
    const int y = random.Below(size);
    image.At(x, y) = 255;
  }
  return CompareForms(image, 255);
}
DIFFERENTIAL_TEST(HoughLinesDifferentialTest, SameLinesOfPatches, 300);

// The largest one has more stroke pixels than a counter of 16 bits holds.
TEST(HoughLinesDifferentialTest, SameLinesOfFullPatches) {
  for (const int size : {160, 200, 280}) {
    EXPECT_EQ(CompareForms(FlatImage({size, size}, 255), 255), "");
    CaseRandom random(static_cast<std::uint32_t>(size));
    TestImage noise = FlatImage({size, size}, 0);
    for (unsigned char& pixel : noise.pixels) {
      pixel = random.OneOf<unsigned char>({0, 255});
    }
    EXPECT_EQ(CompareForms(noise, 255), "");
  }
}

}  // namespace
}  // namespace quorvex::tests
