#include "tools/pictures/shrinking.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace quorvex::tools {
namespace {

// Where pixel `at` of `count` begins, and where the one before it ends, in pixels of `sourceCount`.
int FirstCovered(int at, int count, int sourceCount) {
  return static_cast<int>(std::int64_t{at} * sourceCount / count);
}
int EndOfCovered(int at, int count, int sourceCount) {
  return static_cast<int>(((std::int64_t{at} + 1) * sourceCount + count - 1) / count);
}

Picture EmptyPicture(int width, int height, int bitsPerSample) {
  Picture picture;
  picture.width = width;
  picture.height = height;
  picture.bitsPerSample = bitsPerSample;
  picture.pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  return picture;
}

}  // namespace

Picture ShrinkPicture(const Picture& picture, int width, int height) {
  Picture small = EmptyPicture(width, height, picture.bitsPerSample);
  std::vector<std::uint32_t> columnSums(static_cast<std::size_t>(picture.width));
  for (int y = 0; y < height; ++y) {
    const int top = FirstCovered(y, height, picture.height);
    const int bottom = EndOfCovered(y, height, picture.height);
    std::fill(columnSums.begin(), columnSums.end(), 0u);
    for (int row = top; row < bottom; ++row) {
      for (int x = 0; x < picture.width; ++x) {
        columnSums[static_cast<std::size_t>(x)] += picture.At(x, row);
      }
    }
    for (int x = 0; x < width; ++x) {
      const int left = FirstCovered(x, width, picture.width);
      const int right = EndOfCovered(x, width, picture.width);
      std::uint64_t sum = 0;
      for (int column = left; column < right; ++column) {
        sum += columnSums[static_cast<std::size_t>(column)];
      }
      const std::uint64_t count =
          static_cast<std::uint64_t>(right - left) * static_cast<std::uint64_t>(bottom - top);
      small.At(x, y) = static_cast<std::uint8_t>((sum + count / 2) / count);
    }
  }
  return small;
}

Picture ShrinkBrightest(const Picture& picture, int width, int height) {
  Picture small = EmptyPicture(width, height, picture.bitsPerSample);
  for (int y = 0; y < height; ++y) {
    const int bottom = EndOfCovered(y, height, picture.height);
    for (int row = FirstCovered(y, height, picture.height); row < bottom; ++row) {
      for (int x = 0; x < width; ++x) {
        const int right = EndOfCovered(x, width, picture.width);
        for (int column = FirstCovered(x, width, picture.width); column < right; ++column) {
          small.At(x, y) = std::max(small.At(x, y), picture.At(column, row));
        }
      }
    }
  }
  return small;
}

PictureSize SizeWithin(const Picture& picture, int side) {
  const int longest = std::max(picture.width, picture.height);
  if (longest <= side) {
    return {picture.width, picture.height};
  }
  const auto shorter = [&](int length) {
    return std::max(1, static_cast<int>(std::int64_t{length} * side / longest));
  };
  return {shorter(picture.width), shorter(picture.height)};
}

Picture ShrinkToSide(const Picture& picture, int side) {
  const PictureSize size = SizeWithin(picture, side);
  return size.width == picture.width && size.height == picture.height
             ? picture
             : ShrinkPicture(picture, size.width, size.height);
}

}  // namespace quorvex::tools
