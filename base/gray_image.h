// An 8-bit grey image that owns its pixels: width * height bytes, one row after another without
// gaps, 0 black, 255 white. Row 0 is the bottom row of the picture.
#ifndef QUORVEX_BASE_GRAY_IMAGE_H_
#define QUORVEX_BASE_GRAY_IMAGE_H_

#include <cstddef>
#include <vector>

namespace quorvex {

// Offset of a pixel in a buffer of rows `width` bytes long, formed in 64 bits.
inline std::size_t PixelOffset(int x, int y, int width) {
  return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
         static_cast<std::size_t>(x);
}

inline bool IsInside(int x, int y, int width, int height) {
  return x >= 0 && x < width && y >= 0 && y < height;
}

// A grey image that somebody else owns, to be read.
struct GrayView {
  const unsigned char* pixels;  // width * height bytes
  int width;
  int height;

  bool Holds(int x, int y) const { return IsInside(x, y, width, height); }
  unsigned char At(int x, int y) const { return pixels[PixelOffset(x, y, width)]; }
};

class GrayImage {
 public:
  GrayImage() = default;

  // A black image; width and height are at least 0.
  GrayImage(int width, int height)
      : width_(width), height_(height), pixels_(PixelOffset(0, height, width)) {}

  // A copy of width * height bytes.
  GrayImage(const unsigned char* source, int width, int height)
      : width_(width), height_(height), pixels_(source, source + PixelOffset(0, height, width)) {}

  int Width() const { return width_; }
  int Height() const { return height_; }
  std::size_t Size() const { return pixels_.size(); }
  unsigned char* Data() { return pixels_.data(); }
  const unsigned char* Data() const { return pixels_.data(); }

  void Fill(unsigned char value) { pixels_.assign(pixels_.size(), value); }

 private:
  int width_ = 0;
  int height_ = 0;
  std::vector<unsigned char> pixels_;
};

}  // namespace quorvex

#endif  // QUORVEX_BASE_GRAY_IMAGE_H_
