#include <gtest/gtest.h>

#include <string>

#include "preprocess/sobel_edges.h"
#include "tests/reference/preprocess.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {
namespace {

// Around the step of 20 that the threshold behind the stage asks for, and around those whose
// gradients reach 127, 128 and 255.
const LevelList kLevels = {80, 85, 75, 111, 112, 143, 144, 208, 0, 255};

std::string SameBytes(CaseRandom& random) {
  ImageSize size = RandomSize(random, 64);
  // Other widths are no input of the stage, but have a result as well.
  if (!random.OneIn(4)) {
    size.width = (size.width + 3) / 4 * 4;
  }
  return CompareInPlace(RandomImage(random, size, kLevels), plain::SobelEdges, SobelEdges);
}
DIFFERENTIAL_TEST(SobelEdgesDifferentialTest, SameBytes, kCases);

std::string SameResultWithoutMemory(CaseRandom& random) {
  return CompareRefused(RandomImage(random, RandomSize(random, 12), kLevels), plain::SobelEdges,
                        SobelEdges);
}
DIFFERENTIAL_TEST(SobelEdgesDifferentialTest, SameResultWithoutMemory, 200);

}  // namespace
}  // namespace quorvex::tests
