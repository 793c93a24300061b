#include <gtest/gtest.h>

#include <string>

#include "crossmark/cross_center.h"
#include "crossmark/patch.h"
#include "crossmark/thinning.h"
#include "tests/reference/crossmark.h"
#include "tests/support/float_difference.h"
#include "tests/support/random_image.h"
#include "tests/support/side_by_side.h"

namespace quorvex::tests {
namespace {

// Strokes of black on white, one pixel wide or more, with other levels among them.
TestImage ThinnedPatch(CaseRandom& random) {
  TestImage patch = FlatImage({kPatchSize, kPatchSize}, 255);
  for (int i = random.OneOf({0, 1, 1, 1, 2, 3}); i > 0; --i) {
    const int x = random.Below(kPatchSize);
    const int y = random.Below(kPatchSize);
    DrawRandomCross(random, x, y, 0, patch);
  }
  for (int i = random.OneOf({0, 20, 400}); i > 0; --i) {
    const int x = random.Below(kPatchSize);
    const int y = random.Below(kPatchSize);
    patch.At(x, y) = random.OneOf<unsigned char>({0, 255, 1});
  }
  if (random.OneIn(2)) {
    ThinImage(patch.Data(), kPatchSize, kPatchSize);
  }
  return patch;
}

std::string SameCentreAndPictures(CaseRandom& random) {
  SideBySide& forms = SharedSideBySide();
  const TestImage thinned = ThinnedPatch(random);
  const TestImage grey =
      random.OneIn(3) ? RandomImage(random, {kPatchSize, kPatchSize}, {200, 70, 71, 199}) : thinned;
  PointF plainCentre{-1.0f, -1.0f};
  PointF fastCentre = plainCentre;
  bool plainResult = false;
  bool fastResult = false;
  forms.RunMostlyBlocked(
      random,
      [&] {
        plainResult =
            plain::LocateCrossCenter(grey.Data(), thinned.Data(), plainCentre.x, plainCentre.y);
      },
      [&] {
        fastResult = LocateCrossCenter(grey.Data(), thinned.Data(), fastCentre.x, fastCentre.y);
      });
  if (plainResult != fastResult) {
    return std::string(fastResult ? "found" : "not found");
  }
  const std::string difference =
      plainResult ? PointDifference("centre", plainCentre, fastCentre) : "";
  return difference.empty() ? forms.FileDifference() : difference;
}
DIFFERENTIAL_TEST(CrossCenterDifferentialTest, SameCentreAndPictures, 3'000);

}  // namespace
}  // namespace quorvex::tests
