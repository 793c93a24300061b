#include "tests/reference/crossmark.h"

#include <cstring>

#include "base/local_buffer.h"
#include "crossmark/patch.h"

namespace quorvex::plain {
namespace {

constexpr unsigned char kStroke = 0;
constexpr unsigned char kBackground = 255;
constexpr int kBorder = 2;  // pixels that are never examined

// Offsets in the patch; north is the next row in memory.
constexpr int kNorth = kPatchSize;
constexpr int kWest = -1;
constexpr int kSouth = -kPatchSize;
constexpr int kEast = 1;

// The eight neighbours, once around.
constexpr int kAround[8] = {kNorth, kNorth + kWest, kWest, kSouth + kWest,
                            kSouth, kSouth + kEast, kEast, kNorth + kEast};

bool IsStroke(const unsigned char* pixel) { return *pixel == kStroke; }

int StrokeNeighbours(const unsigned char* pixel) {
  int count = 0;
  for (const int offset : kAround) {
    count += IsStroke(pixel + offset) ? 1 : 0;
  }
  return count;
}

// How often background is followed by stroke on the way around the pixel.
int CrossingNumber(const unsigned char* pixel) {
  int crossings = 0;
  for (int i = 0; i < 8; ++i) {
    if (!IsStroke(pixel + kAround[i]) && IsStroke(pixel + kAround[(i + 1) % 8])) {
      ++crossings;
    }
  }
  return crossings;
}

bool CanBeDeleted(const unsigned char* pixel) {
  const int neighbours = StrokeNeighbours(pixel);
  if (neighbours < 2 || neighbours > 6 || CrossingNumber(pixel) != 1) {
    return false;
  }
  const unsigned char* north = pixel + kNorth;
  const unsigned char* west = pixel + kWest;
  const bool northAndWest = IsStroke(north) && IsStroke(west);
  if (northAndWest && IsStroke(pixel + kEast) && CrossingNumber(north) == 1) {
    return false;
  }
  return !(northAndWest && IsStroke(pixel + kSouth) && CrossingNumber(west) == 1);
}

// One pass over the patch as it stands; returns whether a pixel was deleted.
bool ThinOnce(const unsigned char* patch, unsigned char* thinned) {
  bool hasChanged = false;
  std::memset(thinned, kBackground, kPatchArea);
  for (int y = kBorder; y < kPatchSize - kBorder; ++y) {
    for (int x = kBorder; x < kPatchSize - kBorder; ++x) {
      const int offset = y * kPatchSize + x;
      if (!IsStroke(patch + offset)) {
        continue;
      }
      if (CanBeDeleted(patch + offset)) {
        hasChanged = true;
      } else {
        thinned[offset] = kStroke;
      }
    }
  }
  return hasChanged;
}

}  // namespace

bool ThinImage(unsigned char* patch, int, int) {
  LocalBuffer thinned(kPatchArea);
  if (!thinned.IsValid()) {
    return false;
  }
  bool hasChanged = true;
  while (hasChanged) {
    hasChanged = ThinOnce(patch, thinned.Data());
    std::memcpy(patch, thinned.Data(), kPatchArea);
  }
  return true;
}

}  // namespace quorvex::plain
