// What Read_Image makes of a file, for tests.
#ifndef QUORVEX_TESTS_SUPPORT_READ_RESULT_H_
#define QUORVEX_TESTS_SUPPORT_READ_RESULT_H_

#include "imageio/bmp_file.h"
#include "tests/support/kept_memory.h"

namespace quorvex::tests {

// The arguments before a call, recognised afterwards when they are untouched.
constexpr long kUntouched = -77;

struct ReadResult {
  bool isRead = false;
  unsigned char* pixels = nullptr;
  long width = kUntouched;
  long height = kUntouched;
  int bitsPerPixel = static_cast<int>(kUntouched);

  bool IsUntouched() const {
    return pixels == nullptr && width == kUntouched && height == kUntouched &&
           bitsPerPixel == kUntouched;
  }
};

inline ReadResult Read(const char* path) {
  ReadResult result;
  result.isRead = Read_Image(result.pixels, result.width, result.height, result.bitsPerPixel, path);
  KeepForever(result.pixels);
  return result;
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_READ_RESULT_H_
