// Picture files for the readers' tests, written by the libraries that read them. Where a build has
// not got a library its files are empty; tests ask ReadsJpeg and ReadsTiff first.
#ifndef QUORVEX_TESTS_SUPPORT_ENCODED_PICTURES_H_
#define QUORVEX_TESTS_SUPPORT_ENCODED_PICTURES_H_

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/bytes.h"

namespace quorvex::tests {

struct JpegFields {
  int width = 0;
  int height = 0;
  int channels = 1;  // grey; 3 for red-green-blue, 4 for CMYK
  Bytes samples;
  int orientation = 0;  // in an Exif marker; 0 for none
  bool isProgressive = false;
  int scans = 0;  // of a grey picture, each with a little of every block; 0 for as many as usual
};
Bytes EncodeJpeg(const JpegFields& fields);

struct TiffFields {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  std::uint16_t channels = 1;
  std::uint16_t bits = 8;
  std::uint16_t photometric = 1;   // 0: white is zero, 1: black is zero, 2: RGB, 5: CMYK, 6: YCbCr
  std::uint16_t sampleFormat = 1;  // 1: without a sign, 2: with a sign, 3: floating point
  std::uint16_t compression = 1;   // 1: none, 5: LZW, 7: JPEG
  std::uint16_t orientation = 0;   // 0 for none
  bool isTiled = false;            // in tiles of 16 x 16
  bool hasPlanes = false;
  int pages = 1;
  int previews = 0;  // of one pixel, before the pages
  Bytes samples;     // 16 bits in the order of this machine
};
// Through a file, which is written over.
Bytes EncodeTiff(const TiffFields& fields, const std::string& path);
// Whether the libtiff of these tests has JPEG in it.
bool WritesTiffOfJpeg();

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_ENCODED_PICTURES_H_
