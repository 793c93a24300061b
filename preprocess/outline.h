// The outline of the target as a list of pixel positions, in the order of the rays that found them.
#ifndef QUORVEX_PREPROCESS_OUTLINE_H_
#define QUORVEX_PREPROCESS_OUTLINE_H_

#include <vector>

namespace quorvex {

struct PixelPosition {
  int x;  // pixels, may lie outside the image
  int y;
};

inline bool operator==(const PixelPosition& left, const PixelPosition& right) {
  return left.x == right.x && left.y == right.y;
}

using OutlineList = std::vector<PixelPosition>;

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_OUTLINE_H_
