#include "benchmarks/precision/jpeg_loss.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace quorvex::benchmarks {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr int kBlock = 8;          // pixels a side
constexpr int kMiddle = 128;       // grey level, subtracted before the transform
constexpr int kPlainQuality = 50;  // of 100: the table as it stands

// Of luminance, by rows, in the standard's annex K.
constexpr int kLuminanceTable[kBlock * kBlock] = {
    16, 11, 10, 16, 24,  40,  51,  61,  12, 12, 14, 19, 26,  58,  60,  55,
    14, 13, 16, 24, 40,  57,  69,  56,  14, 17, 22, 29, 51,  87,  80,  62,
    18, 22, 37, 56, 68,  109, 103, 77,  24, 35, 55, 64, 81,  104, 113, 92,
    49, 64, 78, 87, 103, 121, 120, 101, 72, 92, 95, 98, 112, 100, 103, 99};

struct Transform {
  double cosines[kBlock][kBlock];  // by frequency, then place
  double steps[kBlock * kBlock];   // the rounding of the coefficients
};

Transform MakeTransform(int quality) {
  Transform transform;
  for (int frequency = 0; frequency < kBlock; ++frequency) {
    const double norm = std::sqrt((frequency == 0 ? 1.0 : 2.0) / kBlock);
    for (int place = 0; place < kBlock; ++place) {
      transform.cosines[frequency][place] =
          norm * std::cos((2 * place + 1) * frequency * kPi / (2 * kBlock));
    }
  }
  const int scale = quality < kPlainQuality ? 5000 / quality : 200 - 2 * quality;  // percent
  for (int i = 0; i < kBlock * kBlock; ++i) {
    transform.steps[i] = std::clamp((kLuminanceTable[i] * scale + 50) / 100, 1, 255);
  }
  return transform;
}

// Both ways: `towardsPlaces` makes levels of coefficients.
void Turn(const Transform& transform, bool towardsPlaces, double* block) {
  double half[kBlock * kBlock];
  const auto factor = [&](int out, int in) {
    return towardsPlaces ? transform.cosines[in][out] : transform.cosines[out][in];
  };
  for (int row = 0; row < kBlock; ++row) {
    for (int out = 0; out < kBlock; ++out) {
      double sum = 0;
      for (int in = 0; in < kBlock; ++in) {
        sum += factor(out, in) * block[row * kBlock + in];
      }
      half[row * kBlock + out] = sum;
    }
  }
  for (int out = 0; out < kBlock; ++out) {
    for (int column = 0; column < kBlock; ++column) {
      double sum = 0;
      for (int in = 0; in < kBlock; ++in) {
        sum += factor(out, in) * half[in * kBlock + column];
      }
      block[out * kBlock + column] = sum;
    }
  }
}

void CompressBlock(const Transform& transform, int left, int top, tools::Picture& picture) {
  double block[kBlock * kBlock];
  for (int y = 0; y < kBlock; ++y) {
    for (int x = 0; x < kBlock; ++x) {
      block[y * kBlock + x] =
          picture.At(std::min(left + x, picture.width - 1), std::min(top + y, picture.height - 1)) -
          kMiddle;
    }
  }
  Turn(transform, false, block);
  for (int i = 0; i < kBlock * kBlock; ++i) {
    block[i] = std::round(block[i] / transform.steps[i]) * transform.steps[i];
  }
  Turn(transform, true, block);
  for (int y = 0; y < std::min(kBlock, picture.height - top); ++y) {
    for (int x = 0; x < std::min(kBlock, picture.width - left); ++x) {
      const double level = std::round(block[y * kBlock + x] + kMiddle);
      picture.At(left + x, top + y) = static_cast<std::uint8_t>(std::clamp(level, 0.0, 255.0));
    }
  }
}

}  // namespace

void Compress(tools::Picture& picture, int quality) {
  if (quality == 0) {
    return;
  }
  const Transform transform = MakeTransform(quality);
  for (int top = 0; top < picture.height; top += kBlock) {
    for (int left = 0; left < picture.width; left += kBlock) {
      CompressBlock(transform, left, top, picture);
    }
  }
}

}  // namespace quorvex::benchmarks
