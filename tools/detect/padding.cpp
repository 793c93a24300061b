#include "tools/detect/padding.h"

#include <algorithm>
#include <cstddef>

namespace quorvex::tools {
namespace {

constexpr int kSizeStep = 4;  // pixels

int NextMultiple(int size) { return (size + kSizeStep - 1) / kSizeStep * kSizeStep; }

}  // namespace

bool HasDetectableSize(const Picture& picture) {
  return picture.width >= kSizeStep && picture.height >= kSizeStep &&
         picture.width % kSizeStep == 0 && picture.height % kSizeStep == 0;
}

Picture PadToDetectableSize(const Picture& picture) {
  Picture padded;
  padded.width = NextMultiple(picture.width);
  padded.height = NextMultiple(picture.height);
  padded.pixels.resize(static_cast<std::size_t>(padded.width) *
                       static_cast<std::size_t>(padded.height));
  for (int y = 0; y < padded.height; ++y) {
    for (int x = 0; x < padded.width; ++x) {
      padded.At(x, y) = picture.At(std::min(x, picture.width - 1), std::min(y, picture.height - 1));
    }
  }
  return padded;
}

}  // namespace quorvex::tools
