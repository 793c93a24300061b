#include <gtest/gtest.h>

#include <string>

#include "crossmark/patch.h"
#include "crossmark/thinning.h"
#include "tests/reference/crossmark.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {
namespace {

constexpr ImageSize kPatch = {kPatchSize, kPatchSize};

// Noise in a part of the patch, so that what is thinned differs from case to case.
TestImage PatchWithNoise(CaseRandom& random) {
  TestImage patch = FlatImage(kPatch, 255);
  const int size = random.Between(1, 60);
  const int left = random.Between(0, kPatchSize - size);
  const int top = random.Between(0, kPatchSize - size);
  const int white = random.OneOf({1, 2, 2, 3, 8});
  for (int y = top; y < top + size; ++y) {
    for (int x = left; x < left + size; ++x) {
      patch.At(x, y) = random.Below(white + 1) == 0 ? 255 : 0;
    }
  }
  return patch;
}

TestImage PatchWithStrokes(CaseRandom& random) {
  TestImage patch = FlatImage(kPatch, 255);
  for (int i = random.Between(1, 3); i > 0; --i) {
    const int x = random.Below(kPatchSize);
    const int y = random.Below(kPatchSize);
    DrawRandomCross(random, x, y, 0, patch);
  }
  for (int i = random.Below(60); i > 0; --i) {
    const int x = random.Below(kPatchSize);
    const int y = random.Below(kPatchSize);
    // Everything but 0 is background.
    patch.At(x, y) = random.OneOf<unsigned char>({0, 0, 255, 1, 254, 128});
  }
  return patch;
}

std::string SameBytesOfNoise(CaseRandom& random) {
  return CompareInPlace(PatchWithNoise(random), plain::ThinImage, ThinImage);
}
DIFFERENTIAL_TEST(ThinningDifferentialTest, SameBytesOfNoise, kCases / 2);

std::string SameBytesOfStrokes(CaseRandom& random) {
  return CompareInPlace(PatchWithStrokes(random), plain::ThinImage, ThinImage);
}
DIFFERENTIAL_TEST(ThinningDifferentialTest, SameBytesOfStrokes, kCases / 2);

std::string SameBytesOfWholePatches(CaseRandom& random) {
  return CompareInPlace(RandomImage(random, kPatch, {0, 255, 1, 254}), plain::ThinImage, ThinImage);
}
DIFFERENTIAL_TEST(ThinningDifferentialTest, SameBytesOfWholePatches, 200);

std::string SameResultWithoutMemory(CaseRandom& random) {
  return CompareRefused(PatchWithStrokes(random), plain::ThinImage, ThinImage);
}
DIFFERENTIAL_TEST(ThinningDifferentialTest, SameResultWithoutMemory, 10);

}  // namespace
}  // namespace quorvex::tests
