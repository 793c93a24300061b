#include <gtest/gtest.h>

#include <string>

#include "preprocess/outside_region.h"
#include "tests/reference/preprocess.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {
namespace {

std::string SameBytes(CaseRandom& random) {
  const LevelList levels = random.OneIn(2) ? LevelList{0, 128} : LevelList{0, 128, 50, 127, 129};
  return CompareInPlace(RandomImage(random, RandomSize(random, 80), levels),
                        plain::MarkOutsideRegion, MarkOutsideRegion);
}
DIFFERENTIAL_TEST(OutsideRegionDifferentialTest, SameBytes, kCases);

}  // namespace
}  // namespace quorvex::tests
