// What the sources of this folder that must be refused do wrong, done right. Compiled, never run.
#include <algorithm>
#include <cstddef>

#include "interface/quorvex.h"
#include "platform/mfc.h"

int CheckedFile(const char* path) {
  CFile file;
  if (!file.Open(CA2T(path), CFile::modeReadWrite)) {
    return AfxMessageBox(_T("a text"), MB_OK);
  }
  unsigned char byte = 0;
  return file.Read(&byte, sizeof byte) == sizeof byte ? byte : -1;
}

long LargerOf(long left, int right) { return std::max(left, static_cast<long>(right)); }

bool ReadSize(const char* path, long& width, long& height) {
  unsigned char* pixels = nullptr;
  int bitsPerPixel = 0;
  return Read_Image(pixels, width, height, bitsPerPixel, path);
}

std::size_t HeldMemory(std::size_t size) {
  const HLOCAL handle = LocalAlloc(LHND, size);
  return handle != nullptr && LocalFree(handle) == nullptr ? size : 0;
}
