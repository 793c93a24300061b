// The one copy that the host's detection needs of an image whose row 0 is at the top.
#ifndef QUORVEX_BINDINGS_SHARED_BOTTOM_UP_H_
#define QUORVEX_BINDINGS_SHARED_BOTTOM_UP_H_

#include <cstddef>
#include <vector>

namespace quorvex::bindings {

// Pixels in memory, in any order.
struct PixelRows {
  const unsigned char* pixels = nullptr;  // the first pixel of the top row
  std::ptrdiff_t rowStride = 0;           // bytes from a row to the next below
  std::ptrdiff_t columnStride = 1;        // bytes from a pixel to the next to the right
  int width = 0;                          // pixels, 1 or more
  int height = 0;                         // pixels, 1 or more
};

// Width and height of the image for the host's detection.
struct BufferSize {
  int width = 0;
  int height = 0;
};

// Copies the rows from the bottom up into a buffer of at least the image's size. What the buffer is
// larger by repeats the image's last column to the right and its last row at the bottom.
std::vector<unsigned char> BottomUpPixels(const PixelRows& image, BufferSize size);

}  // namespace quorvex::bindings

#endif  // QUORVEX_BINDINGS_SHARED_BOTTOM_UP_H_
