#include "tests/reference/crossmark.h"

#include <algorithm>

#include "base/gray_image.h"

namespace quorvex::plain {
namespace {

constexpr long long kWindowSize = 20;   // pixels
constexpr long long kReachBefore = 10;  // pixels from the window's first column to its centre
constexpr long long kReachBehind = 9;

int WindowSum(const unsigned char* image, int width, int height, long long centreX,
              long long centreY) {
  const int left = static_cast<int>(std::clamp<long long>(centreX - kReachBefore, 0, width));
  const int right = static_cast<int>(std::clamp<long long>(centreX + kReachBehind, -1, width - 1));
  const int top = static_cast<int>(std::clamp<long long>(centreY - kReachBefore, 0, height));
  const int bottom =
      static_cast<int>(std::clamp<long long>(centreY + kReachBehind, -1, height - 1));
  int sum = 0;
  for (int y = top; y <= bottom; ++y) {
    for (int x = left; x <= right; ++x) {
      sum += image[PixelOffset(x, y, width)];
    }
  }
  return sum;
}

}  // namespace

bool FindBrightestWindow(const unsigned char* image, int width, int height, int x, int y, int sizeX,
                         int sizeY, int& foundX, int& foundY) {
  const long long columns = sizeX - kWindowSize;
  const long long rows = sizeY - kWindowSize;
  int largestSum = 0;
  for (long long r = 0; r < rows; ++r) {
    for (long long c = 0; c < columns; ++c) {
      const long long centreX = x + c - columns / 2;
      const long long centreY = y + r - rows / 2;
      const int sum = WindowSum(image, width, height, centreX, centreY);
      if (sum > largestSum) {
        largestSum = sum;
        foundX = static_cast<int>(centreX);
        foundY = static_cast<int>(centreY);
      }
    }
  }
  return largestSum >= 1;
}

}  // namespace quorvex::plain
