#include "benchmarks/precision/empty_pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace quorvex::tests {

using namespace benchmarks;

namespace {

TEST(EmptyPictures, AreFortyDifferentOnesThatShowWhatTheyAreCalled) {
  std::set<std::string> names;
  std::set<std::vector<std::uint8_t>> contents;
  for (const EmptyPicture& empty : AllEmptyPictures()) {
    names.insert(empty.name);
    if (empty.name.find("graph paper") == 0) {
      continue;  // rendering these takes seconds
    }
    const tools::Picture picture = empty.make();
    const std::vector<std::uint8_t>& pixels = picture.pixels;
    EXPECT_EQ(pixels.size(),
              static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
    contents.insert(pixels);
    if (empty.name != "black" && empty.name.find("noise") == std::string::npos) {
      const auto [darkest, brightest] = std::minmax_element(pixels.begin(), pixels.end());
      EXPECT_GT(*brightest - *darkest, 90) << empty.name;
    }
  }
  EXPECT_EQ(names.size(), 40u);
  EXPECT_EQ(contents.size(), 36u);
}

}  // namespace
}  // namespace quorvex::tests
