// The length of an 8-bit bitmap row in bytes.
#ifndef QUORVEX_PREPROCESS_BITMAP_STRIDE_H_
#define QUORVEX_PREPROCESS_BITMAP_STRIDE_H_

#include <cstddef>

namespace quorvex {

// The width rounded up to a multiple of 4; width is at least 0.
inline std::size_t BitmapStride(int width) {
  return (static_cast<std::size_t>(width) * 8 + 31) / 32 * 4;
}

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_BITMAP_STRIDE_H_
