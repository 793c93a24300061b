// Smoothed pictures of full, half and quarter size, in which marks are looked for and their arms
// followed.
//
// Full size is smoothed by the binomial 1 2 1, the others (means of 2 x 2 and 4 x 4 pixels) by 1 4
// 6 4 1. Values are whole numbers, 64 to a grey level, so that every compiler finds the same
// candidates.
#ifndef QUORVEX_PRECISE_PYRAMID_H_
#define QUORVEX_PRECISE_PYRAMID_H_

#include <Eigen/Core>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <type_traits>
#include <vector>

#include "precise/gray_picture.h"

namespace quorvex::precise {

constexpr int kLevelUnit = 64;    // values of a level to a grey level
constexpr int kFractionBits = 8;  // of positions within a level
constexpr int kFraction = 1 << kFractionBits;
constexpr int kLevels = 3;  // full, half and quarter size

// Leaves values unset until they are written: large pictures cost as much to clear as to make.
struct UnsetAllocator : std::allocator<std::uint16_t> {
  template <typename Other>
  struct rebind {
    using other = std::conditional_t<std::is_same_v<Other, std::uint16_t>, UnsetAllocator,
                                     std::allocator<Other>>;
  };
  void construct(std::uint16_t* value) { ::new (static_cast<void*>(value)) std::uint16_t; }
  void construct(std::uint16_t* value, std::uint16_t from) {
    ::new (static_cast<void*>(value)) std::uint16_t(from);
  }
};

// One picture of the pyramid; positions in it are in its own pixels.
struct PyramidLevel {
  int index = 0;  // 0 full size, 1 half, 2 quarter
  int width = 0;
  int height = 0;
  std::vector<std::uint16_t, UnsetAllocator> values;

  const std::uint16_t* Row(int y) const {
    return values.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
  }
  std::uint16_t* Row(int y) {
    return values.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
  }

  // Pixels of the picture to a pixel of this level.
  double Scale() const { return static_cast<double>(1 << index); }
  Eigen::Vector2d ToPicture(const Eigen::Vector2d& point) const {
    return (point.array() + 0.5) * Scale() - 0.5;
  }
  Eigen::Vector2d FromPicture(const Eigen::Vector2d& point) const {
    return (point.array() + 0.5) / Scale() - 0.5;
  }

  // Whether a position in 1/256 pixels lies within the pixels that can be interpolated.
  bool HoldsFixed(int x, int y) const {
    return x >= 0 && y >= 0 && x < (width - 1) * kFraction && y < (height - 1) * kFraction;
  }

  // Bilinear, at a position in 1/256 pixels that HoldsFixed.
  int SampleFixed(int x, int y) const {
    const int fx = x & (kFraction - 1);
    const int fy = y & (kFraction - 1);
    const std::uint16_t* row = Row(y >> kFractionBits) + (x >> kFractionBits);
    const std::uint16_t* below = row + width;
    const int upper = row[0] * (kFraction - fx) + row[1] * fx;
    const int lower = below[0] * (kFraction - fx) + below[1] * fx;
    return (upper * (kFraction - fy) + lower * fy) >> (2 * kFractionBits);
  }
};

// 1/256 pixels; what lies far outside any level is kept there.
inline int ToFixed(double position) {
  constexpr double kFarthest = 1e6;  // pixels, outside of every level and inside of int
  const double inside = position > kFarthest ? kFarthest : position;
  return static_cast<int>(
      std::floor((inside > -kFarthest ? inside : -kFarthest) * kFraction + 0.5));
}

using Pyramid = std::array<PyramidLevel, kLevels>;

// The picture is at least 16 pixels wide and high.
Pyramid BuildPyramid(const GrayPicture& picture);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_PYRAMID_H_
