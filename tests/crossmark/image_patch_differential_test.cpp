#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>

#include "crossmark/image_patch.h"
#include "tests/reference/crossmark.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {
namespace {

std::string SameOriginAndPixels(CaseRandom& random) {
  constexpr int kHighest = std::numeric_limits<int>::max();
  const TestImage image = RandomImage(random, RandomSize(random, 90), {0, 255, 128});
  const int reach = random.OneOf({80, 100, 3});
  const int near = random.Between(-20, 200);
  const int position =
      random.OneIn(9) ? random.OneOf({kHighest, -kHighest, reach, reach + 1}) : near;
  const int x0 = plain::PatchOrigin(position, reach);
  if (PatchOrigin(position, reach) != x0) {
    return "origin of " + std::to_string(position);
  }
  const int y0 = random.OneIn(9) ? kHighest : random.Below(100);
  const int size = random.OneOf({1, 7, 40, 160});
  const GrayImage plainPatch =
      plain::CutPatch(image.Data(), image.width, image.height, x0, y0, size);
  const GrayImage fastPatch = CutPatch(image.Data(), image.width, image.height, x0, y0, size);
  const bool isSame = plainPatch.Width() == fastPatch.Width() &&
                      plainPatch.Height() == fastPatch.Height() &&
                      std::memcmp(plainPatch.Data(), fastPatch.Data(), plainPatch.Size()) == 0;
  return isSame ? std::string()
                : "patch of " + std::to_string(size) + " from (" + std::to_string(x0) + ", " +
                      std::to_string(y0) + ")";
}
DIFFERENTIAL_TEST(ImagePatchDifferentialTest, SameOriginAndPixels, kCases);

}  // namespace
}  // namespace quorvex::tests
