// The position of a pixel.
#ifndef QUORVEX_BASE_PIXEL_POSITION_H_
#define QUORVEX_BASE_PIXEL_POSITION_H_

namespace quorvex {

struct PixelPosition {
  int x;  // pixels, may lie outside the image
  int y;
};

inline bool operator==(const PixelPosition& left, const PixelPosition& right) {
  return left.x == right.x && left.y == right.y;
}

}  // namespace quorvex

#endif  // QUORVEX_BASE_PIXEL_POSITION_H_
