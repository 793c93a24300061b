// Images for differential tests: noise, flat areas, boxes, lines and gradients of given grey
// levels.
#ifndef QUORVEX_TESTS_SUPPORT_RANDOM_IMAGE_H_
#define QUORVEX_TESTS_SUPPORT_RANDOM_IMAGE_H_

#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

#include "tests/support/differential.h"
#include "tests/support/faults.h"

namespace quorvex::tests {

// `stride` bytes a row, nothing behind the last one.
struct TestImage {
  int width = 0;
  int height = 0;
  std::size_t stride = 0;
  std::vector<unsigned char> pixels;

  unsigned char* Data() { return pixels.data(); }
  const unsigned char* Data() const { return pixels.data(); }
  unsigned char& At(int x, int y) {
    return pixels[stride * static_cast<std::size_t>(y) + static_cast<std::size_t>(x)];
  }
};

using LevelList = std::vector<unsigned char>;

enum class RowLength {
  kPacked,  // width bytes
  kBitmap,  // rounded up to a multiple of 4; the bytes at the end are noise
};

struct ImageSize {
  int width;
  int height;
};

// Up to `largest` pixels each way; often one of the smallest, or long and thin.
ImageSize RandomSize(CaseRandom& random, int largest);

// Mostly of the given levels, of which the first is the common one.
TestImage RandomImage(CaseRandom& random, ImageSize size, const LevelList& levels,
                      RowLength rowLength = RowLength::kPacked);

// An image of one level.
TestImage FlatImage(ImageSize size, unsigned char level);

// As far as they lie inside the image.
void FillRandomBox(CaseRandom& random, unsigned char level, TestImage& image);
void DrawLine(int x0, int y0, int x1, int y1, int thickness, unsigned char level, TestImage& image);
void DrawRandomLine(CaseRandom& random, unsigned char level, TestImage& image);

// Two crossing lines, 1 to 4 pixels thick, around a position.
void DrawRandomCross(CaseRandom& random, int x, int y, unsigned char level, TestImage& image);

// The first difference of two images of the same size, or nothing.
std::string FirstDifference(const TestImage& plain, const TestImage& fast);

// Runs both forms of a stage that changes its image, `stage(pixels, width, height)`, each on a copy
// of the input, and returns the first difference of results and images.
template <typename Plain, typename Fast>
std::string CompareInPlace(const TestImage& input, Plain plain, Fast fast) {
  TestImage plainImage = input;
  TestImage fastImage = input;
  const bool plainResult = plain(plainImage.Data(), input.width, input.height);
  const bool fastResult = fast(fastImage.Data(), input.width, input.height);
  if (plainResult != fastResult) {
    return std::to_string(input.width) + " x " + std::to_string(input.height) + ": returns " +
           (fastResult ? "true" : "false") + ", plain " + (plainResult ? "true" : "false");
  }
  return FirstDifference(plainImage, fastImage);
}

// The same with the n-th request for local memory refused, n from 1 to 5.
template <typename Plain, typename Fast>
std::string CompareRefused(const TestImage& input, Plain plain, Fast fast) {
  for (int n = 1; n <= 5; ++n) {
    const auto refused = [n](auto stage) {
      return [n, stage](unsigned char* pixels, int width, int height) {
        const FailNth fault(Fault::kLocalAlloc, n);
        return stage(pixels, width, height);
      };
    };
    const std::string difference = CompareInPlace(input, refused(plain), refused(fast));
    if (!difference.empty()) {
      return "request " + std::to_string(n) + " refused, " + difference;
    }
  }
  return "";
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_RANDOM_IMAGE_H_
