// The picture that the direct detector works on: 8 bits a pixel, row 0 at the top, rows without
// gaps. x runs right, y down; whole numbers are the middles of pixels. It owns its pixels.
#ifndef QUORVEX_PRECISE_GRAY_PICTURE_H_
#define QUORVEX_PRECISE_GRAY_PICTURE_H_

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quorvex::precise {

// Which marks are looked for. All stages see dark marks on a bright board.
enum class Polarity { kDarkMarks, kLightMarks };

class GrayPicture {
 public:
  GrayPicture() = default;

  // A picture of one grey level; width and height are at least 0.
  GrayPicture(int width, int height, std::uint8_t level)
      : width_(width),
        height_(height),
        pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), level) {}

  int Width() const { return width_; }
  int Height() const { return height_; }
  const std::uint8_t* Row(int y) const { return pixels_.data() + Offset(y); }
  std::uint8_t* Row(int y) { return pixels_.data() + Offset(y); }
  std::uint8_t At(int x, int y) const { return Row(y)[x]; }
  bool Holds(int x, int y) const { return x >= 0 && x < width_ && y >= 0 && y < height_; }

 private:
  std::size_t Offset(int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_);
  }

  int width_ = 0;
  int height_ = 0;
  std::vector<std::uint8_t> pixels_;
};

// A copy of an image whose rows begin `stride` bytes apart (negative when they run upwards in
// memory). For light marks it is the negative, 255 - v, so that the marks are dark.
GrayPicture CopyPicture(const unsigned char* pixels, int width, int height, std::ptrdiff_t stride,
                        Polarity polarity);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_GRAY_PICTURE_H_
