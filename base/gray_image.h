// An 8-bit grey image that owns its pixels: width * height bytes, one row after another without
// gaps, 0 black, 255 white. Row 0 is the bottom row of the picture.
#ifndef QUORVEX_BASE_GRAY_IMAGE_H_
#define QUORVEX_BASE_GRAY_IMAGE_H_

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>

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
  GrayImage(int width, int height) : GrayImage(Unset(width, height)) { Fill(0); }

  // A copy of width * height bytes.
  GrayImage(const unsigned char* source, int width, int height) : GrayImage(Unset(width, height)) {
    std::copy(source, source + Size(), Data());
  }

  // An image whose pixels hold anything until they are written.
  static GrayImage Unset(int width, int height) {
    GrayImage image;
    image.width_ = width;
    image.height_ = height;
    image.pixels_.reset(new unsigned char[image.Size()]);
    return image;
  }

  GrayImage(const GrayImage& other) : GrayImage(other.Data(), other.Width(), other.Height()) {}
  GrayImage(GrayImage&& other) noexcept
      : width_(std::exchange(other.width_, 0)),
        height_(std::exchange(other.height_, 0)),
        pixels_(std::move(other.pixels_)) {}
  GrayImage& operator=(GrayImage other) noexcept {
    width_ = other.width_;
    height_ = other.height_;
    pixels_ = std::move(other.pixels_);
    return *this;
  }

  int Width() const { return width_; }
  int Height() const { return height_; }
  std::size_t Size() const { return PixelOffset(0, height_, width_); }
  unsigned char* Data() { return pixels_.get(); }
  const unsigned char* Data() const { return pixels_.get(); }

  void Fill(unsigned char value) { std::fill(Data(), Data() + Size(), value); }

 private:
  int width_ = 0;
  int height_ = 0;
  std::unique_ptr<unsigned char[]> pixels_;
};

}  // namespace quorvex

#endif  // QUORVEX_BASE_GRAY_IMAGE_H_
