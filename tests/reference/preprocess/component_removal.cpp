#include "tests/reference/preprocess.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "base/gray_image.h"
#include "preprocess/bitmap_stride.h"
#include "preprocess/outline.h"

namespace quorvex::plain {
namespace {

constexpr unsigned char kStroke = 255;
constexpr unsigned char kVisited = 128;
constexpr unsigned char kRemoved = 0;
constexpr int kLargestExtent = 400;          // pixels
constexpr std::size_t kLargestArea = 5'000;  // pixels
constexpr int kSearchLimit = 10'000'000;     // pixels that one search adds before it gives up

constexpr PixelPosition kNeighbours[8] = {{-1, 0},  {0, 1},  {1, 0},  {0, -1},
                                          {-1, -1}, {1, -1}, {-1, 1}, {1, 1}};

std::size_t Offset(PixelPosition position, int width) {
  return BitmapStride(width) * static_cast<std::size_t>(position.y) +
         static_cast<std::size_t>(position.x);
}

// Fills `component` with the pixels connected to the seed, breadth first, each set to kVisited.
void CollectComponent(unsigned char* image, int width, int height, PixelPosition seed,
                      std::vector<PixelPosition>& component) {
  component.assign(1, seed);
  image[Offset(seed, width)] = kVisited;
  int added = 0;
  for (std::size_t next = 0; next < component.size(); ++next) {
    const PixelPosition centre = component[next];
    for (const PixelPosition& step : kNeighbours) {
      const PixelPosition neighbour{centre.x + step.x, centre.y + step.y};
      if (!IsInside(neighbour.x, neighbour.y, width, height) ||
          image[Offset(neighbour, width)] != kStroke) {
        continue;
      }
      component.push_back(neighbour);
      image[Offset(neighbour, width)] = kVisited;
      if (++added > kSearchLimit) {
        return;
      }
    }
  }
}

bool IsTooLarge(const std::vector<PixelPosition>& component, int width, int height) {
  PixelPosition lowest{width, height};
  PixelPosition highest{0, 0};
  for (const PixelPosition& position : component) {
    lowest.x = std::min(lowest.x, position.x);
    lowest.y = std::min(lowest.y, position.y);
    highest.x = std::max(highest.x, position.x);
    highest.y = std::max(highest.y, position.y);
  }
  return highest.x - lowest.x + 1 > kLargestExtent || highest.y - lowest.y + 1 > kLargestExtent ||
         component.size() > kLargestArea;
}

}  // namespace

bool RemoveLargeComponents(unsigned char* image, int width, int height) {
  std::vector<PixelPosition> component;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      if (image[Offset({x, y}, width)] != kStroke) {
        continue;
      }
      CollectComponent(image, width, height, {x, y}, component);
      if (IsTooLarge(component, width, height)) {
        for (const PixelPosition& position : component) {
          image[Offset(position, width)] = kRemoved;
        }
      }
    }
  }
  return true;
}

}  // namespace quorvex::plain
