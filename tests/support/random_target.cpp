#include "tests/support/random_target.h"

#include <limits>

#include "tests/support/random_board.h"

namespace quorvex::tests {
namespace {

TestImage ParallelLines(CaseRandom& random) {
  TestImage image = FlatImage({360, 360}, 120);
  const int distance = random.Between(8, 40);
  const int slant = random.Between(-40, 40);
  for (int x = -60; x < 420; x += distance) {
    DrawLine(x, 0, x + slant, 359, 3, 95, image);
  }
  return image;
}

}  // namespace

TestImage RandomTarget(CaseRandom& random, bool isSoft) {
  const int size = random.OneOf({440, 480, 500});
  TestImage image = FlatImage({size, size}, 0);
  const int margin = random.Between(4, 30);
  for (int y = margin; y < size - margin; ++y) {
    for (int x = margin; x < size - margin; ++x) {
      image.At(x, y) = 100;
    }
  }
  const bool isComplete = random.OneIn(2);
  const int pitch = random.Between(120, 140);
  const int centre = size / 2 + random.Between(-12, 12);
  const unsigned char stroke = isSoft ? 75 : 20;
  DrawBoard(random, {100, stroke, pitch, isComplete}, centre, centre, image);
  if (random.OneIn(3)) {
    for (unsigned char& pixel : image.pixels) {
      pixel = static_cast<unsigned char>(pixel + random.Below(4));
    }
  }
  return image;
}

TestImage RandomDetectionInput(CaseRandom& random) {
  switch (random.Below(10)) {
    case 0:
      return FlatImage({200, 240}, random.OneOf<unsigned char>({0, 79, 80, 255}));
    case 1:
      return ParallelLines(random);
    case 2: {
      const int width = 4 * random.Between(1, 60);
      const int height = 4 * random.Between(1, 60);
      return RandomImage(random, {width, height}, {80, 79, 81, 0, 255});
    }
    case 3: {
      // Sizes that are no multiples of 4 are refused with a message.
      const ImageSize size = RandomSize(random, 40);
      return RandomImage(random, size, {80, 79, 81, 0, 255});
    }
    case 4: {
      // A board whose middle is empty: no centre mark.
      TestImage image = RandomTarget(random, true);
      const int middle = image.width / 2;
      for (int y = middle - 75; y < middle + 75; ++y) {
        for (int x = middle - 75; x < middle + 75; ++x) {
          image.At(x, y) = 100;
        }
      }
      return image;
    }
    case 5:
      return RandomTarget(random, false);
    default:
      return RandomTarget(random, true);
  }
}

PointList RandomListBefore(CaseRandom& random) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  PointList points;
  for (int i = random.OneOf({0, 0, 0, 1, 3}); i > 0; --i) {
    CalibrationPoint point = {};
    point.id = random.Between(-2, 9);
    point.row = random.Between(-1, 3);
    point.col = random.Between(-1, 3);
    point.x = random.OneIn(5) ? random.OneOf({kNaN, -1.0f, 1e9f}) : random.Fraction(0, 500);
    point.y = random.OneIn(5) ? random.OneOf({kNaN, -1.0f, 1e9f}) : random.Fraction(0, 500);
    points.push_back(point);
  }
  return points;
}

}  // namespace quorvex::tests
