#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "base/rounding.h"
#include "crossmark/cross_refinement.h"
#include "tests/reference/crossmark.h"
#include "tests/support/faults.h"
#include "tests/support/list_difference.h"
#include "tests/support/random_image.h"
#include "tests/support/side_by_side.h"

namespace quorvex::tests {
namespace {

// Dark strokes on a light ground that is not even.
TestImage GreyImage(CaseRandom& random, ImageSize size, const PointList& points) {
  TestImage image = FlatImage(size, 0);
  const int slope = random.Between(0, 60);
  const int noise = random.OneOf({1, 1, 6, 40});
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      image.At(x, y) =
          static_cast<unsigned char>(150 + slope * x / size.width + random.Below(noise));
    }
  }
  for (const CalibrationPoint& point : points) {
    const int x = TruncateToInt(point.x);
    const int y = TruncateToInt(point.y);
    if (IsInside(x, y, size.width, size.height)) {
      const int markX = x + random.Between(-9, 9);
      const int markY = y + random.Between(-9, 9);
      DrawRandomCross(random, markX, markY, random.OneOf<unsigned char>({0, 40, 120}), image);
    }
  }
  return image;
}

PointList RandomPoints(CaseRandom& random, ImageSize size) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  PointList points;
  for (int i = random.Between(1, 3); i > 0; --i) {
    CalibrationPoint point = {};
    point.id = i;
    point.x = random.Fraction(0, size.width);
    point.y = random.Fraction(0, size.height);
    if (random.OneIn(12)) {
      point.x = random.OneOf({kNaN, 1e30f, -1e30f, -1.0f, 0.0f, 1e6f});
    }
    if (random.OneIn(12)) {
      point.y = random.OneOf({kNaN, 1e30f, -1e30f, -1.0f, 0.0f, 1e6f});
    }
    points.push_back(point);
  }
  return points;
}

// `refused` is the request for local memory that is refused; 0 for none.
std::string CompareForms(SideBySide& forms, CaseRandom& random, int refused) {
  const int width = random.Between(20, 330);
  const int height = random.Between(20, 330);
  PointList plainPoints = RandomPoints(random, {width, height});
  PointList fastPoints = plainPoints;
  const TestImage image = random.OneIn(12) ? RandomImage(random, {width, height}, {200, 70, 71})
                                           : GreyImage(random, {width, height}, plainPoints);
  TestImage mask = FlatImage({width, height}, 255);
  if (random.OneIn(2)) {
    FillRandomBox(random, 0, mask);
  }
  forms.RunMostlyBlocked(
      random,
      [&] {
        const FailNth fault(Fault::kLocalAlloc, refused);
        plain::RefineCrossMarks(image.Data(), width, height, mask.Data(), plainPoints);
      },
      [&] {
        const FailNth fault(Fault::kLocalAlloc, refused);
        RefineCrossMarks(image.Data(), width, height, mask.Data(), fastPoints);
      });
  const std::string difference = ListDifference(plainPoints, fastPoints);
  return difference.empty() ? forms.FileDifference() : difference;
}

std::string SamePointsAndPictures(CaseRandom& random) {
  SideBySide& forms = SharedSideBySide();
  return CompareForms(forms, random, 0);
}
DIFFERENTIAL_TEST(CrossRefinementDifferentialTest, SamePointsAndPictures, 600);

std::string SamePointsAndPicturesWithoutMemory(CaseRandom& random) {
  SideBySide& forms = SharedSideBySide();
  const int refused = random.Between(1, 3);
  return CompareForms(forms, random, refused);
}
DIFFERENTIAL_TEST(CrossRefinementDifferentialTest, SamePointsAndPicturesWithoutMemory, 100);

}  // namespace
}  // namespace quorvex::tests
