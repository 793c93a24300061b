#include <gtest/gtest.h>

#include <string>

#include "preprocess/binarize.h"
#include "tests/reference/preprocess.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {
namespace {

std::string SameBytesForEveryImageAndLevel(CaseRandom& random) {
  const unsigned char level = random.OneOf<unsigned char>({0, 1, 20, 40, 50, 80, 128, 254, 255});
  const unsigned char below = static_cast<unsigned char>(level - 1);
  const unsigned char above = static_cast<unsigned char>(level + 1);
  const TestImage input = RandomImage(random, RandomSize(random, 70), {below, level, above, 0, 255},
                                      RowLength::kBitmap);
  return CompareInPlace(
      input,
      [level](unsigned char* image, int width, int height) {
        return plain::BinarizeImage(image, width, height, level);
      },
      [level](unsigned char* image, int width, int height) {
        return BinarizeImage(image, width, height, level);
      });
}
DIFFERENTIAL_TEST(BinarizeDifferentialTest, SameBytesForEveryImageAndLevel, kCases);

}  // namespace
}  // namespace quorvex::tests
