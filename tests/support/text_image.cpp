#include "tests/support/text_image.h"

#include <stdexcept>

namespace quorvex::tests {
namespace {

struct Sign {
  char letter;
  unsigned char level;
};

constexpr Sign kSigns[] = {{'#', 0}, {'.', 255}, {'o', 128}, {'-', 50}};

unsigned char LevelOf(char letter) {
  for (const Sign& sign : kSigns) {
    if (sign.letter == letter) {
      return sign.level;
    }
  }
  throw std::invalid_argument("no such sign in a text image");
}

char LetterOf(unsigned char level) {
  for (const Sign& sign : kSigns) {
    if (sign.level == level) {
      return sign.letter;
    }
  }
  return '?';
}

}  // namespace

GrayImage ImageOf(const std::vector<std::string>& rows) {
  const int width = static_cast<int>(rows.at(0).size());
  GrayImage image(width, static_cast<int>(rows.size()));
  for (int y = 0; y < image.Height(); ++y) {
    for (int x = 0; x < width; ++x) {
      image.Data()[PixelOffset(x, y, width)] =
          LevelOf(rows[static_cast<std::size_t>(y)].at(static_cast<std::size_t>(x)));
    }
  }
  return image;
}

std::vector<std::string> TextOf(const GrayImage& image) {
  std::vector<std::string> rows;
  for (int y = 0; y < image.Height(); ++y) {
    std::string row;
    for (int x = 0; x < image.Width(); ++x) {
      row += LetterOf(image.Data()[PixelOffset(x, y, image.Width())]);
    }
    rows.push_back(row);
  }
  return rows;
}

}  // namespace quorvex::tests
