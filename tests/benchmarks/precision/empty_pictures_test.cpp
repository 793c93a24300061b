#include "benchmarks/precision/empty_pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace quorvex::tests {

using namespace benchmarks;

namespace {

TEST(EmptyPictures, AreFortyDifferentOnes) {
  std::set<std::string> names;
  std::set<std::vector<std::uint8_t>> contents;
  for (const EmptyPicture& empty : AllEmptyPictures()) {
    const tools::Picture picture = empty.make();
    names.insert(empty.name);
    EXPECT_EQ(picture.pixels.size(),
              static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
    contents.insert(picture.pixels);
  }
  EXPECT_EQ(names.size(), 40u);
  EXPECT_EQ(contents.size(), 40u);
}

TEST(EmptyPictures, DrawnOnesShowWhatTheyAreCalled) {
  for (const EmptyPicture& empty : AllEmptyPictures()) {
    if (empty.name == "black" || empty.name.find("noise") != std::string::npos) {
      continue;
    }
    const std::vector<std::uint8_t> pixels = empty.make().pixels;
    const auto [darkest, brightest] = std::minmax_element(pixels.begin(), pixels.end());
    EXPECT_GT(*brightest - *darkest, 90) << empty.name;
  }
}

}  // namespace
}  // namespace quorvex::tests
