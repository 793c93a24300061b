#include "tests/reference/preprocess.h"

#include <cstring>
#include <utility>

#include "base/local_buffer.h"
#include "preprocess/bitmap_stride.h"

namespace quorvex::plain {
namespace {

constexpr int kNeighbourhood = 9;  // pixels

// One above the median: on a black-and-white image four white pixels of nine make the result white,
// so that thin dark lines vanish.
constexpr int kRank = 5;

void GatherNeighbourhood(const unsigned char* centre, std::ptrdiff_t stride,
                         unsigned char* values) {
  std::memcpy(values, centre - stride - 1, 3);
  std::memcpy(values + 3, centre - 1, 3);
  std::memcpy(values + 6, centre + stride - 1, 3);
}

void SortAscending(unsigned char* values) {
  for (int last = kNeighbourhood - 1; last > 0; --last) {
    for (int i = 0; i < last; ++i) {
      if (values[i] > values[i + 1]) {
        std::swap(values[i], values[i + 1]);
      }
    }
  }
}

}  // namespace

bool RankFilter3x3(unsigned char* image, int width, int height, int) {
  if (width < 1 || height < 1) {
    return true;
  }
  const std::size_t stride = BitmapStride(width);
  const std::size_t size = stride * static_cast<std::size_t>(height);
  LocalBuffer filtered(size);
  if (!filtered.IsValid()) {
    return false;
  }
  LocalBuffer sorted(kNeighbourhood);
  if (!sorted.IsValid()) {
    return false;
  }
  std::memcpy(filtered.Data(), image, size);
  for (int y = height - 2; y >= 1; --y) {
    const std::size_t row = stride * static_cast<std::size_t>(y);
    for (int x = 1; x <= width - 2; ++x) {
      const std::size_t offset = row + static_cast<std::size_t>(x);
      GatherNeighbourhood(image + offset, static_cast<std::ptrdiff_t>(stride), sorted.Data());
      SortAscending(sorted.Data());
      filtered.Data()[offset] = sorted.Data()[kRank];
    }
  }
  std::memcpy(image, filtered.Data(), size);
  return true;
}

}  // namespace quorvex::plain
