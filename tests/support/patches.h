// Patches with strokes drawn into them, and the diagnostic pictures read back.
#ifndef QUORVEX_TESTS_SUPPORT_PATCHES_H_
#define QUORVEX_TESTS_SUPPORT_PATCHES_H_

#include <cstddef>
#include <random>
#include <string>

#include "base/gray_image.h"
#include "tests/support/bytes.h"

namespace quorvex::tests {

inline GrayImage UniformImage(int width, int height, unsigned char level) {
  GrayImage image(width, height);
  image.Fill(level);
  return image;
}

inline unsigned char& PixelAt(GrayImage& image, int x, int y) {
  return image.Data()[PixelOffset(x, y, image.Width())];
}

// Columns firstX to lastX of a row, both inclusive.
inline void DrawRow(GrayImage& image, int y, int firstX, int lastX, unsigned char level) {
  for (int x = firstX; x <= lastX; ++x) {
    PixelAt(image, x, y) = level;
  }
}

inline void DrawColumn(GrayImage& image, int x, int firstY, int lastY, unsigned char level) {
  for (int y = firstY; y <= lastY; ++y) {
    PixelAt(image, x, y) = level;
  }
}

inline Bytes BytesOf(const GrayImage& image) {
  return Bytes(image.Data(), image.Data() + image.Size());
}

// Every pixel one of `levels`, each as likely as the others.
inline GrayImage RandomImage(int width, int height, const Bytes& levels, std::mt19937& random) {
  GrayImage image(width, height);
  for (std::size_t i = 0; i < image.Size(); ++i) {
    image.Data()[i] = levels[random() % levels.size()];
  }
  return image;
}

struct Picture {
  int width = 0;
  int height = 0;
  Bytes pixels;  // as in the file, first row first
};

// The 8-bit BMP file of that name; an empty picture when there is none.
inline Picture ReadPicture(const std::string& name) {
  const Bytes bytes = ReadBytes(name);
  constexpr std::size_t kPixelOffset = 14 + 40 + 256 * 4;
  if (bytes.size() < kPixelOffset) {
    return {};
  }
  const auto u32 = [&](std::size_t offset) {
    return bytes[offset] | bytes[offset + 1] << 8 | bytes[offset + 2] << 16 |
           bytes[offset + 3] << 24;
  };
  return {u32(18), u32(22),
          Bytes(bytes.begin() + static_cast<std::ptrdiff_t>(kPixelOffset), bytes.end())};
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_PATCHES_H_
