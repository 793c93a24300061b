#include "crossmark/brightest_window.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "base/gray_image.h"

namespace quorvex {
namespace {

constexpr long long kWindowSize = 20;   // pixels
constexpr long long kReachBefore = 10;  // pixels from the window's first column to its centre

struct Image {
  const unsigned char* pixels;
  int width;
  int height;
};

// Sums of columns, each over the 20 rows that a window covers; `left` is the first one's x. Pixels
// outside the image count as 0.
class ColumnSums {
 public:
  ColumnSums(const Image& image, long long left, std::size_t count)
      : image_(image), left_(left), sums_(count) {}

  void AddRow(long long y) {
    ForRow(y, [](int& sum, unsigned char value) { sum += value; });
  }
  void DropRow(long long y) {
    ForRow(y, [](int& sum, unsigned char value) { sum -= value; });
  }

  int operator[](std::size_t column) const { return sums_[column]; }

 private:
  template <typename Change>
  void ForRow(long long y, Change change) {
    const long long begin = std::max(left_, 0LL);
    const long long end = std::min(left_ + static_cast<long long>(sums_.size()),
                                   static_cast<long long>(image_.width));
    if (y < 0 || y >= image_.height || begin >= end) {
      return;
    }
    const unsigned char* row =
        image_.pixels + PixelOffset(static_cast<int>(begin), static_cast<int>(y), image_.width);
    int* sums = sums_.data() + (begin - left_);
    for (long long i = 0; i < end - begin; ++i) {
      change(sums[i], row[i]);
    }
  }

  Image image_;
  long long left_;
  std::vector<int> sums_;
};

}  // namespace

bool FindBrightestWindow(const unsigned char* image, int width, int height, int x, int y, int sizeX,
                         int sizeY, int& foundX, int& foundY) {
  const long long columns = sizeX - kWindowSize;
  const long long rows = sizeY - kWindowSize;
  if (columns < 1 || rows < 1) {
    return false;
  }
  const long long left = x - columns / 2 - kReachBefore;
  const long long top = y - rows / 2 - kReachBefore;
  ColumnSums sums({image, width, height}, left,
                  static_cast<std::size_t>(columns + kWindowSize - 1));
  for (long long r = 0; r < kWindowSize - 1; ++r) {
    sums.AddRow(top + r);
  }
  int largestSum = 0;
  for (long long r = 0; r < rows; ++r) {
    sums.AddRow(top + r + kWindowSize - 1);
    int sum = 0;
    for (std::size_t c = 0; c < kWindowSize - 1; ++c) {
      sum += sums[c];
    }
    for (std::size_t c = 0; c < static_cast<std::size_t>(columns); ++c) {
      sum += sums[c + kWindowSize - 1];
      if (sum > largestSum) {
        largestSum = sum;
        foundX = static_cast<int>(left + kReachBefore + static_cast<long long>(c));
        foundY = static_cast<int>(top + kReachBefore + r);
      }
      sum -= sums[c];
    }
    sums.DropRow(top + r);
  }
  return largestSum >= 1;
}

}  // namespace quorvex
