// The files that a detection leaves behind.
#ifndef QUORVEX_TESTS_FAULTS_LEFT_FILES_H_
#define QUORVEX_TESTS_FAULTS_LEFT_FILES_H_

#include <map>
#include <string>

#include "tests/support/bytes.h"

namespace quorvex::tests {

inline constexpr const char* kLeftFiles[] = {
    "ProImage.bmp", "Binarization.bmp", "Dilation.bmp", "Contour.bmp",     "SRegion.bmp",
    "Mask.bmp",     "Region.bmp",       "Sobel.bmp",    "Eliminate.bmp",   "CrossMarkRegion.bmp",
    "Sauvola.bmp",  "Thining.bmp",      "Lines.bmp",    "LineSegment.bmp", "D:/Row.txt",
    "D:/Col.txt",   "D:/sdf.txt"};

// What each of them holds, by name; nothing of one that is missing.
inline std::map<std::string, Bytes> ReadLeftFiles() {
  std::map<std::string, Bytes> files;
  for (const char* name : kLeftFiles) {
    files[name] = ReadBytes(name);
  }
  return files;
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_FAULTS_LEFT_FILES_H_
