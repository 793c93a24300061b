#include "crossmark/thinning.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

#include "base/gray_image.h"
#include "base/local_buffer.h"
#include "crossmark/patch.h"

namespace quorvex {
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

// The neighbours as a number: bit i is set when neighbour i is stroke.
unsigned NeighbourCode(const unsigned char* pixel) {
  unsigned code = 0;
  for (int i = 0; i < 8; ++i) {
    code |= static_cast<unsigned>(IsStroke(pixel + kAround[i])) << i;
  }
  return code;
}

constexpr bool HasNeighbour(unsigned code, int i) { return (code >> (i % 8) & 1u) != 0; }

// What the neighbours say, for each code.
struct NeighbourTable {
  bool crossesOnce[256] = {};  // on the way around background is followed by stroke once
  bool isBorder[256] = {};     // and 2 to 6 neighbours are stroke

  constexpr NeighbourTable() {
    for (unsigned code = 0; code < 256; ++code) {
      int neighbours = 0;
      int crossings = 0;
      for (int i = 0; i < 8; ++i) {
        neighbours += HasNeighbour(code, i) ? 1 : 0;
        crossings += !HasNeighbour(code, i) && HasNeighbour(code, i + 1) ? 1 : 0;
      }
      crossesOnce[code] = crossings == 1;
      isBorder[code] = crossings == 1 && neighbours >= 2 && neighbours <= 6;
    }
  }
};

constexpr NeighbourTable kNeighbours;

bool CanBeDeleted(const unsigned char* pixel) {
  if (!kNeighbours.isBorder[NeighbourCode(pixel)]) {
    return false;
  }
  const unsigned char* north = pixel + kNorth;
  const unsigned char* west = pixel + kWest;
  const bool northAndWest = IsStroke(north) && IsStroke(west);
  if (northAndWest && IsStroke(pixel + kEast) && kNeighbours.crossesOnce[NeighbourCode(north)]) {
    return false;
  }
  return !(northAndWest && IsStroke(pixel + kSouth) &&
           kNeighbours.crossesOnce[NeighbourCode(west)]);
}

// Offsets of the black pixels that are examined, row by row.
std::vector<int> CollectStroke(const unsigned char* patch) {
  std::vector<int> stroke;
  for (int y = kBorder; y < kPatchSize - kBorder; ++y) {
    const unsigned char* pixel = patch + PixelOffset(kBorder, y, kPatchSize);
    const unsigned char* end = patch + PixelOffset(kPatchSize - kBorder, y, kPatchSize);
    while (pixel < end &&
           (pixel = static_cast<const unsigned char*>(
                std::memchr(pixel, kStroke, static_cast<std::size_t>(end - pixel)))) != nullptr) {
      for (; pixel < end && IsStroke(pixel); ++pixel) {
        stroke.push_back(static_cast<int>(pixel - patch));
      }
    }
  }
  return stroke;
}

// One pass: writes what stays of the stroke into `thinned`, which is white but for the stroke as
// it was before the pass, and drops the deleted pixels from the list. All pixels are judged on the
// patch as it stands. Returns whether a pixel was deleted.
bool ThinOnce(const unsigned char* patch, std::vector<int>& stroke, unsigned char* thinned) {
  const auto deleted = std::remove_if(stroke.begin(), stroke.end(), [=](int offset) {
    const bool isDeleted = CanBeDeleted(patch + offset);
    thinned[offset] = isDeleted ? kBackground : kStroke;
    return isDeleted;
  });
  const bool hasChanged = deleted != stroke.end();
  stroke.erase(deleted, stroke.end());
  return hasChanged;
}

}  // namespace

bool ThinImage(unsigned char* patch, int, int) {
  LocalBuffer thinned(kPatchArea);
  if (!thinned.IsValid()) {
    return false;
  }
  std::memset(thinned.Data(), kBackground, kPatchArea);
  std::vector<int> stroke = CollectStroke(patch);
  // The first pass ends what lies in the border, too; later ones change the strokes alone.
  bool hasChanged = true;
  while (hasChanged) {
    hasChanged = ThinOnce(patch, stroke, thinned.Data());
    std::memcpy(patch, thinned.Data(), kPatchArea);
  }
  return true;
}

}  // namespace quorvex
