#include "precise/pyramid.h"

#include <algorithm>

namespace quorvex::precise {
namespace {

using Row = std::vector<std::uint16_t>;

PyramidLevel EmptyLevel(int index, int width, int height) {
  PyramidLevel level;
  level.index = index;
  level.width = width;
  level.height = height;
  level.values.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  return level;
}

// Sums of 2 x 2 values, in `sums`, which is half as wide and as high as where they come from.
template <typename Source>
void SumByFours(const Source& source, PyramidLevel& sums) {
  for (int y = 0; y < sums.height; ++y) {
    const auto* upper = source.Row(2 * y);
    const auto* lower = source.Row(2 * y + 1);
    std::uint16_t* to = sums.Row(y);
    for (std::ptrdiff_t x = 0; x < sums.width; ++x) {
      to[x] = static_cast<std::uint16_t>(upper[2 * x] + upper[2 * x + 1] + lower[2 * x] +
                                         lower[2 * x + 1]);
    }
  }
}

// The row with its ends repeated twice on either side: index x + 2 is pixel x.
template <typename Value>
void PadRow(const Value* from, int width, Row& padded) {
  std::copy(from, from + width, padded.begin() + 2);
  padded[0] = padded[1] = padded[2];
  padded[static_cast<std::size_t>(width) + 2] = padded[static_cast<std::size_t>(width) + 3] =
      padded[static_cast<std::size_t>(width) + 1];
}

// One row smoothed along itself by 1 4 6 4 1, the sum divided by 2^shift: 16 to a grey level. The
// sums stay below 65,536 for whole-numbered sums of 2 x 2 and of 4 x 4 pixels.
void SmoothRow(const std::uint16_t* p, int width, int shift, std::uint16_t* to) {
  const int half = 1 << (shift - 1);
  for (int x = 0; x < width; ++x) {
    const std::uint16_t sum = static_cast<std::uint16_t>(p[x] + 4 * p[x + 1] + 6 * p[x + 2] +
                                                         4 * p[x + 3] + p[x + 4] + half);
    to[x] = static_cast<std::uint16_t>(sum >> shift);
  }
}

// Rows smoothed along themselves, of which five are needed at a time.
void SmoothColumn(const std::array<const std::uint16_t*, 5>& p, int width, std::uint16_t* to) {
  for (int x = 0; x < width; ++x) {
    const std::uint16_t sum =
        static_cast<std::uint16_t>(p[0][x] + 4 * p[1][x] + 6 * p[2][x] + 4 * p[3][x] + p[4][x] + 2);
    to[x] = static_cast<std::uint16_t>(sum >> 2);
  }
}

// `shift` brings the sums of a row to 16 to a grey level.
PyramidLevel Smoothed(const PyramidLevel& sums, int shift) {
  PyramidLevel smooth = EmptyLevel(sums.index, sums.width, sums.height);
  const std::size_t width = static_cast<std::size_t>(sums.width);
  Row padded(width + 4);
  std::array<Row, 5> ring;
  ring.fill(Row(width));
  int done = 0;  // rows smoothed along themselves
  for (int y = 0; y < sums.height; ++y) {
    for (; done < std::min(y + 3, sums.height); ++done) {
      PadRow(sums.Row(done), sums.width, padded);
      SmoothRow(padded.data(), sums.width, shift, ring[static_cast<std::size_t>(done % 5)].data());
    }
    std::array<const std::uint16_t*, 5> rows{};
    for (int k = 0; k < 5; ++k) {
      const int at = std::clamp(y + k - 2, 0, sums.height - 1);
      rows[static_cast<std::size_t>(k)] = ring[static_cast<std::size_t>(at % 5)].data();
    }
    SmoothColumn(rows, sums.width, smooth.Row(y));
  }
  return smooth;
}

// The sum of three rows by 1 2 1, then of three columns: 16 times a pixel, brought to 64 to a grey
// level.
PyramidLevel FullSize(const GrayPicture& picture) {
  PyramidLevel smooth = EmptyLevel(0, picture.Width(), picture.Height());
  const std::size_t width = static_cast<std::size_t>(smooth.width);
  Row sums(width);
  Row padded(width + 4);
  for (int y = 0; y < smooth.height; ++y) {
    const std::uint8_t* above = picture.Row(std::max(0, y - 1));
    const std::uint8_t* row = picture.Row(y);
    const std::uint8_t* below = picture.Row(std::min(smooth.height - 1, y + 1));
    for (std::size_t x = 0; x < width; ++x) {
      sums[x] = static_cast<std::uint16_t>(above[x] + 2 * row[x] + below[x]);
    }
    PadRow(sums.data(), smooth.width, padded);
    std::uint16_t* to = smooth.Row(y);
    for (std::size_t x = 0; x < width; ++x) {
      to[x] = static_cast<std::uint16_t>((padded[x + 1] + 2 * padded[x + 2] + padded[x + 3]) * 4);
    }
  }
  return smooth;
}

}  // namespace

Pyramid BuildPyramid(const GrayPicture& picture) {
  PyramidLevel half = EmptyLevel(1, picture.Width() / 2, picture.Height() / 2);
  SumByFours(picture, half);  // 4 to a grey level
  PyramidLevel quarter = EmptyLevel(2, half.width / 2, half.height / 2);
  SumByFours(half, quarter);  // 16 to a grey level
  return {FullSize(picture), Smoothed(half, 2), Smoothed(quarter, 4)};
}

}  // namespace quorvex::precise
