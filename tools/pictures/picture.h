// Pictures as the command handles them: rows from the top of the picture downwards.
#ifndef QUORVEX_TOOLS_PICTURES_PICTURE_H_
#define QUORVEX_TOOLS_PICTURES_PICTURE_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quorvex::tools {

struct Picture {
  int width = 0;                     // pixels
  int height = 0;                    // pixels
  std::vector<std::uint8_t> pixels;  // width * height grey values, top row first, no gaps
  int bitsPerSample = 8;             // of the file that it was read from: 16 when they were scaled
  std::string note = {};  // a sentence on how the file was taken, without its name; mostly empty

  std::uint8_t& At(int x, int y) { return pixels[Index(x, y)]; }
  std::uint8_t At(int x, int y) const { return pixels[Index(x, y)]; }

 private:
  std::size_t Index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
           static_cast<std::size_t>(x);
  }
};

struct ColorPicture {
  int width = 0;                  // pixels
  int height = 0;                 // pixels
  std::vector<std::uint8_t> rgb;  // width * height red-green-blue triples, top row first, no gaps
};

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_PICTURE_H_
