#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "preprocess/outline_tracing.h"
#include "tests/reference/preprocess.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {
namespace {

std::string CompareForms(const TestImage& image) {
  OutlineList plainOutline = {{-7, 1'000'000}};  // what the list held stays
  OutlineList fastOutline = plainOutline;
  const bool plainResult =
      plain::TraceTargetOutline(image.Data(), image.width, image.height, plainOutline);
  const bool fastResult = TraceTargetOutline(image.Data(), image.width, image.height, fastOutline);
  const std::string size = std::to_string(image.width) + " x " + std::to_string(image.height);
  if (plainResult != fastResult || plainOutline.size() != fastOutline.size()) {
    return size + ": " + std::to_string(fastOutline.size()) + " points, plain " +
           std::to_string(plainOutline.size());
  }
  for (std::size_t i = 0; i < plainOutline.size(); ++i) {
    if (!(plainOutline[i] == fastOutline[i])) {
      return size + ": point " + std::to_string(i) + " is (" + std::to_string(fastOutline[i].x) +
             ", " + std::to_string(fastOutline[i].y) + "), plain (" +
             std::to_string(plainOutline[i].x) + ", " + std::to_string(plainOutline[i].y) + ")";
    }
  }
  return "";
}

std::string SameOutlineOfAnyImage(CaseRandom& random) {
  const LevelList levels = random.OneIn(2) ? LevelList{255, 0} : LevelList{0, 255, 254, 1};
  return CompareForms(RandomImage(random, RandomSize(random, 48), levels));
}
DIFFERENTIAL_TEST(OutlineTracingDifferentialTest, SameOutlineOfAnyImage, kCases);

// A bright target in the dark, crossed by dark lines of every width.
std::string SameOutlineOfTargets(CaseRandom& random) {
  const int width = random.Between(60, 240);
  const int height = random.Between(60, 240);
  TestImage image = FlatImage({width, height}, 0);
  const int radiusX = random.Between(8, width / 2);
  const int radiusY = random.Between(8, height / 2);
  const int offsetX = random.Between(-6, 6);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int dx = (x - width / 2 - offsetX) * radiusY;
      const int dy = (y - height / 2) * radiusX;
      image.At(x, y) = dx * dx + dy * dy <= radiusX * radiusX * radiusY * radiusY ? 255 : 0;
    }
  }
  for (int i = random.Below(6); i > 0; --i) {
    const int x0 = random.Below(width);
    const int x1 = random.Below(width);
    const int y0 = random.OneIn(3) ? height / 2 : random.Below(height);
    const int y1 = random.Below(height);
    const int thickness = random.Between(1, 18);
    const unsigned char level = random.OneOf<unsigned char>({0, 0, 255});
    DrawLine(x0, y0, x1, y1, thickness, level, image);
  }
  return CompareForms(image);
}
DIFFERENTIAL_TEST(OutlineTracingDifferentialTest, SameOutlineOfTargets, 500);

std::string SameGeometry(CaseRandom& random) {
  const int width = random.Below(20'000);
  const int height = random.Below(20'000);
  const int radius = random.Below(20'000);
  const double cosine = static_cast<double>(random.Fraction(-1, 1)) * 1.000001;
  const double sine = static_cast<double>(random.Fraction(-1, 1)) * 0.999999;
  const bool isSame = plain::ImageCentre(width, height) == ImageCentre(width, height) &&
                      plain::RayOffset(radius, cosine, sine) == RayOffset(radius, cosine, sine);
  return isSame ? std::string() : "radius " + std::to_string(radius);
}
DIFFERENTIAL_TEST(OutlineTracingDifferentialTest, SameGeometry, kCases);

}  // namespace
}  // namespace quorvex::tests
