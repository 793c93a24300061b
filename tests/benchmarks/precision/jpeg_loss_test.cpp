#include "benchmarks/precision/jpeg_loss.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace quorvex::tests {

using namespace benchmarks;

namespace {

// Not a multiple of 8 on either side.
tools::Picture Waves() {
  tools::Picture picture;
  picture.width = 45;
  picture.height = 30;
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      picture.pixels.push_back(
          static_cast<std::uint8_t>(128 + 60 * std::sin(0.7 * x) + 50 * std::cos(0.4 * y * x)));
    }
  }
  return picture;
}

int LargestChange(int quality) {
  const tools::Picture before = Waves();
  tools::Picture after = before;
  Compress(after, quality);
  int largest = 0;
  for (std::size_t i = 0; i < before.pixels.size(); ++i) {
    largest = std::max(largest, std::abs(before.pixels[i] - after.pixels[i]));
  }
  return largest;
}

TEST(JpegLoss, GrowsAsQualityFalls) {
  EXPECT_EQ(LargestChange(0), 0);
  EXPECT_LE(LargestChange(100), 2);
  EXPECT_GT(LargestChange(90), 2);
  EXPECT_GT(LargestChange(50), LargestChange(90));
  EXPECT_GT(LargestChange(15), LargestChange(50));
}

TEST(JpegLoss, EvenBlocksStayAsTheyAre) {
  tools::Picture picture;
  picture.width = picture.height = 16;
  picture.pixels.assign(256, 128 + 22);
  Compress(picture, 50);  // the step of the mean is 16, an eighth of the sum's: 2 grey levels
  EXPECT_EQ(picture.pixels, std::vector<std::uint8_t>(256, 128 + 22));
}

}  // namespace
}  // namespace quorvex::tests
