// Images small enough to be drawn in a test as text.
#ifndef QUORVEX_TESTS_SUPPORT_TEXT_IMAGE_H_
#define QUORVEX_TESTS_SUPPORT_TEXT_IMAGE_H_

#include <string>
#include <vector>

#include "base/gray_image.h"

namespace quorvex::tests {

// One text a row, row 0 of the buffer first: '#' is 0 (black), '.' is 255 (white), 'o' is 128, '-'
// is 50.
GrayImage ImageOf(const std::vector<std::string>& rows);

// The same the other way; every other grey level is '?'.
std::vector<std::string> TextOf(const GrayImage& image);

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_TEXT_IMAGE_H_
