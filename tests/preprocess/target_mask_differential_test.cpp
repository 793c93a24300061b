#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "preprocess/target_mask.h"
#include "tests/reference/preprocess.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {
namespace {

TestImage TestImageOf(const GrayImage& image) {
  return {image.Width(), image.Height(), static_cast<std::size_t>(image.Width()),
          std::vector<unsigned char>(image.Data(), image.Data() + image.Size())};
}

std::string SameMaskAndRegion(CaseRandom& random) {
  const ImageSize size = RandomSize(random, 64);
  const TestImage marked = RandomImage(random, size, {0, 50, 128, 1, 255});
  const TestImage input = RandomImage(random, size, {0, 200, 255});
  const GrayImage working(marked.Data(), size.width, size.height);
  const std::string difference = FirstDifference(TestImageOf(plain::MakeTargetMask(working)),
                                                 TestImageOf(MakeTargetMask(working)));
  if (!difference.empty()) {
    return "mask, " + difference;
  }
  return FirstDifference(TestImageOf(plain::MakeTargetRegion(input.Data(), working)),
                         TestImageOf(MakeTargetRegion(input.Data(), working)));
}
DIFFERENTIAL_TEST(TargetMaskDifferentialTest, SameMaskAndRegion, kCases);

}  // namespace
}  // namespace quorvex::tests
