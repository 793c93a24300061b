#include "preprocess/component_removal.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

#include "base/gray_image.h"
#include "preprocess/bitmap_stride.h"
#include "preprocess/outline.h"

namespace quorvex {
namespace {

constexpr unsigned char kStroke = 255;
constexpr unsigned char kVisited = 128;
constexpr unsigned char kRemoved = 0;
constexpr int kLargestExtent = 400;          // pixels
constexpr std::size_t kLargestArea = 5'000;  // pixels
constexpr int kSearchLimit = 10'000'000;     // pixels that one search adds before it gives up

constexpr PixelPosition kNeighbours[8] = {{-1, 0},  {0, 1},  {1, 0},  {0, -1},
                                          {-1, -1}, {1, -1}, {-1, 1}, {1, 1}};

// Searches components breadth first, level by level. Once a component is known to be too large its
// pixels need not be remembered: those found so far and those still to come are removed as the
// search goes on. What the search does not reach before it gives up stays for the next one.
class ComponentSearch {
 public:
  ComponentSearch(unsigned char* image, int width, int height)
      : image_(image), width_(width), height_(height), stride_(BitmapStride(width)) {}

  void Run(PixelPosition seed) {
    lowest_ = highest_ = seed;
    found_.assign(1, seed);
    level_.assign(1, seed);
    mark_ = kVisited;
    At(seed) = mark_;
    int added = 0;
    while (!level_.empty()) {
      next_.clear();
      for (const PixelPosition centre : level_) {
        if (!VisitNeighbours(centre, added)) {
          return;
        }
      }
      level_.swap(next_);
    }
  }

 private:
  unsigned char& At(PixelPosition position) {
    return image_[stride_ * static_cast<std::size_t>(position.y) +
                  static_cast<std::size_t>(position.x)];
  }

  // False when the search gives up.
  bool VisitNeighbours(PixelPosition centre, int& added) {
    const bool isInner =
        centre.x > 0 && centre.x < width_ - 1 && centre.y > 0 && centre.y < height_ - 1;
    for (const PixelPosition& step : kNeighbours) {
      const PixelPosition neighbour{centre.x + step.x, centre.y + step.y};
      if (!isInner && !IsInside(neighbour.x, neighbour.y, width_, height_)) {
        continue;
      }
      unsigned char& level = At(neighbour);
      if (level != kStroke) {
        continue;
      }
      level = mark_;
      next_.push_back(neighbour);
      if (mark_ == kVisited) {
        Remember(neighbour);
      }
      if (++added > kSearchLimit) {
        return false;
      }
    }
    return true;
  }

  void Remember(PixelPosition position) {
    found_.push_back(position);
    lowest_ = {std::min(lowest_.x, position.x), std::min(lowest_.y, position.y)};
    highest_ = {std::max(highest_.x, position.x), std::max(highest_.y, position.y)};
    const bool isTooLarge = highest_.x - lowest_.x + 1 > kLargestExtent ||
                            highest_.y - lowest_.y + 1 > kLargestExtent ||
                            found_.size() > kLargestArea;
    if (isTooLarge) {
      mark_ = kRemoved;
      for (const PixelPosition& earlier : found_) {
        At(earlier) = kRemoved;
      }
    }
  }

  unsigned char* image_;
  int width_;
  int height_;
  std::size_t stride_;
  unsigned char mark_ = kVisited;
  PixelPosition lowest_{};
  PixelPosition highest_{};
  std::vector<PixelPosition> found_;  // while the component may stay
  std::vector<PixelPosition> level_;  // pixels at one distance from the seed, in the order found
  std::vector<PixelPosition> next_;
};

}  // namespace

bool RemoveLargeComponents(unsigned char* image, int width, int height) {
  ComponentSearch search(image, width, height);
  for (int y = 0; y < height; ++y) {
    unsigned char* row = image + BitmapStride(width) * static_cast<std::size_t>(y);
    const unsigned char* end = row + std::max(width, 0);
    const unsigned char* seed = row;
    while (seed < end && (seed = static_cast<const unsigned char*>(std::memchr(
                              seed, kStroke, static_cast<std::size_t>(end - seed)))) != nullptr) {
      search.Run({static_cast<int>(seed - row), y});
      ++seed;
    }
  }
  return true;
}

}  // namespace quorvex
