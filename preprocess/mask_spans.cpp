#include "preprocess/mask_spans.h"

#include <cstddef>
#include <cstring>
#include <vector>

#include "base/gray_image.h"

namespace quorvex {
namespace {

constexpr unsigned char kInsideMask = 255;

PixelSpan RowSpan(const unsigned char* row, int width) {
  const void* found = std::memchr(row, kInsideMask, static_cast<std::size_t>(width));
  if (found == nullptr) {
    return {width, 0};
  }
  const int first = static_cast<int>(static_cast<const unsigned char*>(found) - row);
  int last = width - 1;
  while (row[last] != kInsideMask) {
    --last;
  }
  // A single pixel is no extent.
  return first < last ? PixelSpan{first, last} : PixelSpan{width, 0};
}

// The columns whose first inner pixel is still looked for, a row at a time.
class ColumnSearch {
 public:
  explicit ColumnSearch(int width)
      : isOpen_(static_cast<std::size_t>(width), kOpen), isHit_(isOpen_.size()) {}

  // Sets ends[x] to y for the open columns that are inside in this row.
  void VisitRow(const unsigned char* row, int y, std::vector<int>& ends) {
    MarkHits(row, static_cast<int>(isOpen_.size()), isOpen_.data(), isHit_.data());
    const unsigned char* begin = isHit_.data();
    const unsigned char* end = begin + isHit_.size();
    for (const unsigned char* hit = begin;
         hit < end && (hit = static_cast<const unsigned char*>(std::memchr(
                           hit, kOpen, static_cast<std::size_t>(end - hit)))) != nullptr;
         ++hit) {
      ends[static_cast<std::size_t>(hit - begin)] = y;
    }
  }

 private:
  static constexpr unsigned char kOpen = 255;

  // A column that is hit is closed.
  static void MarkHits(const unsigned char* __restrict row, int width,
                       unsigned char* __restrict isOpen, unsigned char* __restrict isHit) {
    for (int x = 0; x < width; ++x) {
      const unsigned char open = isOpen[x];
      const unsigned char hit = row[x] == kInsideMask ? open : 0;
      isHit[x] = hit;
      isOpen[x] = static_cast<unsigned char>(open & ~hit);
    }
  }

  std::vector<unsigned char> isOpen_;  // kOpen or 0
  std::vector<unsigned char> isHit_;   // by the row that was visited last
};

}  // namespace

PixelSpanList ComputeRowSpans(const unsigned char* mask, int width, int height) {
  PixelSpanList spans;
  spans.reserve(static_cast<std::size_t>(height > 0 ? height : 0));
  for (int y = 0; y < height; ++y) {
    spans.push_back(RowSpan(mask + PixelOffset(0, y, width), width));
  }
  return spans;
}

PixelSpanList ComputeColumnSpans(const unsigned char* mask, int width, int height) {
  if (width < 1) {
    return {};
  }
  const PixelSpan empty{height, 0};
  std::vector<int> first(static_cast<std::size_t>(width), height);
  std::vector<int> last(static_cast<std::size_t>(width), 0);
  ColumnSearch fromTop(width);
  for (int y = 0; y < height; ++y) {
    fromTop.VisitRow(mask + PixelOffset(0, y, width), y, first);
  }
  ColumnSearch fromBottom(width);
  for (int y = height - 1; y >= 0; --y) {
    fromBottom.VisitRow(mask + PixelOffset(0, y, width), y, last);
  }
  PixelSpanList spans;
  spans.reserve(first.size());
  for (std::size_t x = 0; x < first.size(); ++x) {
    spans.push_back(first[x] < last[x] ? PixelSpan{first[x], last[x]} : empty);
  }
  return spans;
}

}  // namespace quorvex
