// Files and folders for the tests of the command.
#ifndef QUORVEX_TESTS_SUPPORT_TEST_FILES_H_
#define QUORVEX_TESTS_SUPPORT_TEST_FILES_H_

#include <cstddef>
#include <cstdint>

#include "tests/support/temporary_folder.h"
#include "tools/pictures/picture.h"

namespace quorvex::tests {

inline tools::Picture FlatPicture(int width, int height, std::uint8_t level) {
  tools::Picture picture;
  picture.width = width;
  picture.height = height;
  picture.pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), level);
  return picture;
}

inline void FillBox(tools::Picture& picture, int x0, int y0, int x1, int y1, std::uint8_t level) {
  for (int y = y0; y < y1; ++y) {
    for (int x = x0; x < x1; ++x) picture.At(x, y) = level;
  }
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_TEST_FILES_H_
