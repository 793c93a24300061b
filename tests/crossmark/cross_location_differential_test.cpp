#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "crossmark/cross_location.h"
#include "tests/reference/crossmark.h"
#include "tests/support/float_difference.h"
#include "tests/support/random_image.h"
#include "tests/support/side_by_side.h"

namespace quorvex::tests {
namespace {

struct Location {
  int result = 0;
  LineSegment first;
  LineSegment second;
  PointF centre = {0.0f, 0.0f};
};

std::string DifferenceOf(const Location& plain, const Location& fast) {
  if (plain.result != fast.result) {
    return "returns " + std::to_string(fast.result) + ", plain " + std::to_string(plain.result);
  }
  if (plain.result == 0) {
    return "";  // the rest means nothing
  }
  const std::string difference = PointDifference("centre", plain.centre, fast.centre);
  return difference.empty()
             ? LinesDifference({plain.first, plain.second}, {fast.first, fast.second})
             : difference;
}

struct Search {
  int x;
  int y;
  int size;
};

std::string CompareForms(SideBySide& forms, CaseRandom& random, const TestImage& image,
                         const Search& search) {
  Location plainLocation;
  Location fastLocation;
  forms.RunMostlyBlocked(
      random,
      [&] {
        plainLocation.result = plain::LocateCrossMark(
            image.Data(), image.width, image.height, search.x, search.y, search.size,
            plainLocation.first, plainLocation.second, plainLocation.centre);
      },
      [&] {
        fastLocation.result = LocateCrossMark(image.Data(), image.width, image.height, search.x,
                                              search.y, search.size, fastLocation.first,
                                              fastLocation.second, fastLocation.centre);
      });
  const std::string difference = DifferenceOf(plainLocation, fastLocation);
  return difference.empty() ? forms.FileDifference() : difference;
}

TestImage ImageWithMarks(CaseRandom& random, ImageSize size) {
  TestImage image = FlatImage(size, 0);
  for (int i = random.OneOf({0, 1, 1, 2, 4}); i > 0; --i) {
    const int x = random.Below(size.width);
    const int y = random.Below(size.height);
    DrawRandomCross(random, x, y, 255, image);
  }
  for (int i = random.OneOf({0, 0, 30, 900}); i > 0; --i) {
    const int x = random.Below(size.width);
    const int y = random.Below(size.height);
    image.At(x, y) = random.OneOf<unsigned char>({255, 254, 0});
  }
  return image;
}

// Fewer cases than of the stages that it calls, for each of which there are as many as usual.
std::string SameMarksAndPictures(CaseRandom& random) {
  SideBySide& forms = SharedSideBySide();
  // Hardly larger than a patch, searched near its lower corner: beyond the image all is stroke,
  // which takes time. The search for the window takes most of the rest.
  const int width = random.OneIn(10) ? random.Between(8, 200) : random.Between(180, 220);
  const int height = random.OneIn(10) ? random.Between(8, 200) : random.Between(180, 220);
  const TestImage image = random.OneIn(30) ? RandomImage(random, {width, height}, {0, 255, 254})
                                           : ImageWithMarks(random, {width, height});
  const int x = random.Between(-30, 120);
  const int y = random.Between(-30, 120);
  const int size = random.OneOf({0, 20, 21, 30, 40});
  return CompareForms(forms, random, image, {x, y, size});
}
DIFFERENTIAL_TEST(CrossLocationDifferentialTest, SameMarksAndPictures, 600);

std::string SameMarksAndPicturesInTheSearchesOfTheGrid(CaseRandom& random) {
  SideBySide& forms = SharedSideBySide();
  const int width = random.Between(150, 420);
  const int height = random.Between(150, 420);
  const TestImage image = ImageWithMarks(random, {width, height});
  const int x = random.Below(width);
  const int y = random.Below(height);
  const int searchSize = random.OneIn(30) ? 500 : 100;
  return CompareForms(forms, random, image, {x, y, searchSize});
}
DIFFERENTIAL_TEST(CrossLocationDifferentialTest, SameMarksAndPicturesInTheSearchesOfTheGrid, 100);

std::string SameMarksAndPicturesFarOutside(CaseRandom& random) {
  SideBySide& forms = SharedSideBySide();
  constexpr int kLowest = std::numeric_limits<int>::min();
  constexpr int kHighest = std::numeric_limits<int>::max();
  const TestImage image = ImageWithMarks(random, {200, 200});
  const int x = random.OneOf({kLowest, kHighest, 90, -500, 5'000});
  const int y = random.OneOf({kLowest, kHighest, 90, -500, 5'000});
  return CompareForms(forms, random, image, {x, y, 40});
}
DIFFERENTIAL_TEST(CrossLocationDifferentialTest, SameMarksAndPicturesFarOutside, 40);

}  // namespace
}  // namespace quorvex::tests
