#include <gtest/gtest.h>

#include <string>

#include "crossmark/patch.h"
#include "crossmark/patch_binarization.h"
#include "tests/reference/crossmark.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {
namespace {

constexpr ImageSize kPatch = {kPatchSize, kPatchSize};

// Flat but for a few pixels: deviations near 0.
TestImage NearlyFlatPatch(CaseRandom& random) {
  const int level = random.Between(1, 254);
  TestImage patch = FlatImage(kPatch, static_cast<unsigned char>(level));
  for (int i = random.Below(400); i > 0; --i) {
    const int x = random.Below(kPatchSize);
    const int y = random.Below(kPatchSize);
    patch.At(x, y) = static_cast<unsigned char>(level + random.Between(-1, 1));
  }
  return patch;
}

std::string SameBytes(CaseRandom& random) {
  const LevelList levels =
      random.OneIn(2) ? LevelList{200, 70, 40, 199} : LevelList{255, 0, 1, 254};
  const TestImage patch =
      random.OneIn(4) ? NearlyFlatPatch(random) : RandomImage(random, kPatch, levels);
  const float k = random.OneIn(2) ? 0.06f : random.OneOf({0.0f, -0.06f, 0.5f, 1.0f, 1e30f});
  TestImage plainResult = FlatImage(kPatch, 7);
  TestImage fastResult = FlatImage(kPatch, 9);
  plain::SauvolaBinarize(patch.Data(), plainResult.Data(), k);
  SauvolaBinarize(patch.Data(), fastResult.Data(), k);
  return FirstDifference(plainResult, fastResult);
}
DIFFERENTIAL_TEST(PatchBinarizationDifferentialTest, SameBytes, kCases);

}  // namespace
}  // namespace quorvex::tests
