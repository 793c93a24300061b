#include <gtest/gtest.h>

#include <string>

#include "preprocess/rank_filter.h"
#include "tests/reference/preprocess.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {
namespace {

bool PlainFilter(unsigned char* image, int width, int height) {
  return plain::RankFilter3x3(image, width, height, 0);
}

bool FastFilter(unsigned char* image, int width, int height) {
  return RankFilter3x3(image, width, height, 0);
}

std::string SameBytesOfTwoLevels(CaseRandom& random) {
  return CompareInPlace(RandomImage(random, RandomSize(random, 48), {0, 255}, RowLength::kBitmap),
                        PlainFilter, FastFilter);
}
DIFFERENTIAL_TEST(RankFilterDifferentialTest, SameBytesOfTwoLevels, kCases);

std::string SameBytesOfManyLevels(CaseRandom& random) {
  const LevelList levels =
      random.OneIn(2) ? LevelList{3, 1, 2, 4, 5, 6, 7, 8, 9} : LevelList{128, 127, 129, 0, 255};
  return CompareInPlace(RandomImage(random, RandomSize(random, 48), levels, RowLength::kBitmap),
                        PlainFilter, FastFilter);
}
DIFFERENTIAL_TEST(RankFilterDifferentialTest, SameBytesOfManyLevels, kCases);

std::string SameResultWithoutMemory(CaseRandom& random) {
  return CompareRefused(RandomImage(random, RandomSize(random, 12), {0, 255}, RowLength::kBitmap),
                        PlainFilter, FastFilter);
}
DIFFERENTIAL_TEST(RankFilterDifferentialTest, SameResultWithoutMemory, 100);

}  // namespace
}  // namespace quorvex::tests
