#include "tests/support/random_image.h"

#include <algorithm>
#include <cstdlib>

#include "base/gray_image.h"
#include "preprocess/bitmap_stride.h"

namespace quorvex::tests {
namespace {

unsigned char RandomLevel(CaseRandom& random, const LevelList& levels) {
  return levels[static_cast<std::size_t>(random.Below(static_cast<int>(levels.size())))];
}

void FillWithNoise(CaseRandom& random, TestImage& image) {
  std::size_t left = 0;
  std::uint32_t bits = 0;
  for (unsigned char& pixel : image.pixels) {
    if (left == 0) {
      bits = random.Next();
      left = 4;
    }
    pixel = static_cast<unsigned char>(bits & 0xFF);
    bits >>= 8;
    --left;
  }
}

// Noise of the levels: a pixel in `every` is not the first one.
void FillWithLevels(CaseRandom& random, const LevelList& levels, int every, TestImage& image) {
  FillWithNoise(random, image);
  const unsigned limit = 256u / static_cast<unsigned>(every);
  for (unsigned char& pixel : image.pixels) {
    const std::size_t choice = pixel % levels.size();
    pixel = pixel < limit ? levels[choice] : levels[0];
  }
}

void FillWithGradient(CaseRandom& random, TestImage& image) {
  const int dx = random.Between(-6, 6);
  const int dy = random.Between(-6, 6);
  const int start = random.Below(256);
  for (int y = 0; y < image.height; ++y) {
    for (int x = 0; x < image.width; ++x) {
      image.At(x, y) = static_cast<unsigned char>(std::clamp(start + x * dx + y * dy, 0, 255));
    }
  }
}

}  // namespace

ImageSize RandomSize(CaseRandom& random, int largest) {
  switch (random.Below(8)) {
    case 0:
      return {random.Between(1, std::min(largest, 4)), random.Between(1, std::min(largest, 4))};
    case 1:
      return {random.Between(1, std::min(largest, 3)), random.Between(1, largest)};
    case 2:
      return {random.Between(1, largest), random.Between(1, std::min(largest, 3))};
    case 3: {
      const int size = random.Between(1, largest);
      return {size, size};
    }
    default:
      return {random.Between(1, largest), random.Between(1, largest)};
  }
}

TestImage FlatImage(ImageSize size, unsigned char level) {
  const std::size_t stride = static_cast<std::size_t>(size.width);
  return {size.width, size.height, stride,
          std::vector<unsigned char>(stride * static_cast<std::size_t>(size.height), level)};
}

TestImage RandomImage(CaseRandom& random, ImageSize size, const LevelList& levels,
                      RowLength rowLength) {
  TestImage image;
  image.width = size.width;
  image.height = size.height;
  image.stride = rowLength == RowLength::kBitmap ? BitmapStride(size.width)
                                                 : static_cast<std::size_t>(size.width);
  image.pixels.assign(image.stride * static_cast<std::size_t>(size.height), 0);
  switch (random.Below(8)) {
    case 0:
      image.pixels.assign(image.pixels.size(), RandomLevel(random, levels));
      break;
    case 1:
      FillWithNoise(random, image);
      break;
    case 2:
      FillWithGradient(random, image);
      break;
    case 3:
      FillWithLevels(random, levels, random.OneOf({4, 16, 64, 256}), image);
      break;
    case 4:
    case 5:
      FillWithLevels(random, levels, random.OneOf({1, 256}), image);
      for (int i = random.Between(1, 8); i > 0; --i) {
        FillRandomBox(random, RandomLevel(random, levels), image);
      }
      break;
    case 6:
      image.pixels.assign(image.pixels.size(), levels[0]);
      for (int i = random.Between(1, 8); i > 0; --i) {
        DrawRandomLine(random, RandomLevel(random, levels), image);
      }
      break;
    default:
      FillWithLevels(random, levels, 1, image);
      break;
  }
  return image;
}

void FillRandomBox(CaseRandom& random, unsigned char level, TestImage& image) {
  const int left = random.Below(image.width);
  const int top = random.Below(image.height);
  const int right = random.Between(left, image.width - 1);
  const int bottom = random.Between(top, image.height - 1);
  for (int y = top; y <= bottom; ++y) {
    for (int x = left; x <= right; ++x) {
      image.At(x, y) = level;
    }
  }
}

void DrawLine(int x0, int y0, int x1, int y1, int thickness, unsigned char level,
              TestImage& image) {
  const int steps = std::max({std::abs(x1 - x0), std::abs(y1 - y0), 1});
  const bool isFlat = std::abs(x1 - x0) >= std::abs(y1 - y0);
  for (int i = 0; i <= steps; ++i) {
    for (int t = 0; t < thickness; ++t) {
      const int x = x0 + (x1 - x0) * i / steps + (isFlat ? 0 : t - thickness / 2);
      const int y = y0 + (y1 - y0) * i / steps + (isFlat ? t - thickness / 2 : 0);
      if (IsInside(x, y, image.width, image.height)) {
        image.At(x, y) = level;
      }
    }
  }
}

void DrawRandomLine(CaseRandom& random, unsigned char level, TestImage& image) {
  const int x0 = random.Below(image.width);
  const int y0 = random.Below(image.height);
  const int x1 = random.Below(image.width);
  const int y1 = random.Below(image.height);
  DrawLine(x0, y0, x1, y1, random.Between(1, 4), level, image);
}

void DrawRandomCross(CaseRandom& random, int x, int y, unsigned char level, TestImage& image) {
  const int thickness = random.Between(1, 4);
  const int arm = random.Between(12, 60);
  const int slant = random.OneOf({0, 0, 1, random.Between(-arm, arm)});
  // The second line is at a right angle to the first, or nearly.
  const int skew = random.OneOf({0, 0, random.Between(-arm, arm)});
  DrawLine(x - arm, y - slant, x + arm, y + slant, thickness, level, image);
  DrawLine(x + slant + skew, y - arm, x - slant - skew, y + arm, thickness, level, image);
}

std::string FirstDifference(const TestImage& plain, const TestImage& fast) {
  if (plain.pixels == fast.pixels) {
    return "";
  }
  const auto [here, there] =
      std::mismatch(plain.pixels.begin(), plain.pixels.end(), fast.pixels.begin());
  const std::size_t offset = static_cast<std::size_t>(here - plain.pixels.begin());
  return std::to_string(plain.width) + " x " + std::to_string(plain.height) + ": (" +
         std::to_string(offset % plain.stride) + ", " + std::to_string(offset / plain.stride) +
         ") is " + std::to_string(*there) + ", plain " + std::to_string(*here);
}

}  // namespace quorvex::tests
