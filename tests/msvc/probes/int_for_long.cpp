// Must be refused: int and long are two types there as well, of one size.
#include "interface/quorvex.h"

bool ReadSize(const char* path, int& width, int& height) {
  unsigned char* pixels = nullptr;
  int bitsPerPixel = 0;
  return Read_Image(pixels, width, height, bitsPerPixel, path);
}
