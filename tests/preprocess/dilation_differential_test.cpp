#include <gtest/gtest.h>

#include <string>

#include "preprocess/dilation.h"
#include "tests/reference/preprocess.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {
namespace {

// Nine values, of which only -1 has a meaning of its own.
struct Element {
  int values[9];
};

Element RandomElement(CaseRandom& random) {
  Element element = {{1, 1, 1, 1, 1, 1, 1, 1, 1}};
  if (!random.OneIn(3)) {
    for (int& value : element.values) {
      value = random.OneOf({-1, -1, 0, 1, 2, -2, 255});
    }
  }
  return element;
}

std::string CompareForms(const TestImage& input, const Element& element, bool isRefused) {
  const auto plainForm = [&element](unsigned char* image, int width, int height) {
    return plain::DilateImage(image, width, height, 0, element.values);
  };
  const auto fastForm = [&element](unsigned char* image, int width, int height) {
    return DilateImage(image, width, height, 0, element.values);
  };
  return isRefused ? CompareRefused(input, plainForm, fastForm)
                   : CompareInPlace(input, plainForm, fastForm);
}

// Without the noise of other levels, which end the stage at once.
TestImage BlackAndWhiteImage(CaseRandom& random, int largest) {
  const LevelList levels = random.OneIn(2) ? LevelList{0, 255} : LevelList{255, 0};
  TestImage image = RandomImage(random, RandomSize(random, largest), levels);
  for (unsigned char& pixel : image.pixels) {
    pixel = pixel < 128 ? 0 : 255;
  }
  return image;
}

std::string SameBytesOfBlackAndWhite(CaseRandom& random) {
  const Element element = RandomElement(random);
  return CompareForms(BlackAndWhiteImage(random, 64), element, false);
}
DIFFERENTIAL_TEST(DilationDifferentialTest, SameBytesOfBlackAndWhite, kCases);

std::string SameResultWithOtherLevels(CaseRandom& random) {
  const Element element = RandomElement(random);
  TestImage image = BlackAndWhiteImage(random, 32);
  for (int i = random.Between(1, 2); i > 0; --i) {
    const int x = random.Below(image.width);
    const int y = random.Below(image.height);
    image.At(x, y) = random.OneOf<unsigned char>({1, 50, 128, 254});
  }
  return CompareForms(image, element, false);
}
DIFFERENTIAL_TEST(DilationDifferentialTest, SameResultWithOtherLevels, kCases);

std::string SameResultWithoutMemory(CaseRandom& random) {
  const Element element = RandomElement(random);
  return CompareForms(BlackAndWhiteImage(random, 12), element, true);
}
DIFFERENTIAL_TEST(DilationDifferentialTest, SameResultWithoutMemory, 100);

}  // namespace
}  // namespace quorvex::tests
