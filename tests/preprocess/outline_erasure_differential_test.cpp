#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "preprocess/outline_erasure.h"
#include "tests/reference/preprocess.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {
namespace {

std::string SameBytesAndAnEmptyList(CaseRandom& random) {
  const TestImage input = RandomImage(random, RandomSize(random, 60), {255, 0, 128});
  OutlineList outline;
  for (int i = random.Below(12); i > 0; --i) {
    constexpr int kLowest = std::numeric_limits<int>::min();
    constexpr int kHighest = std::numeric_limits<int>::max();
    const int x = random.Between(-25, input.width + 25);
    const int y = random.Between(-25, input.height + 25);
    outline.push_back({random.OneIn(20) ? random.OneOf({kLowest, kHighest}) : x,
                       random.OneIn(20) ? random.OneOf({kLowest, kHighest}) : y});
  }
  OutlineList fastOutline = outline;
  const std::string difference = CompareInPlace(
      input,
      [&outline](unsigned char* image, int width, int height) {
        return plain::EraseOutlineEdges(image, width, height, outline);
      },
      [&fastOutline](unsigned char* image, int width, int height) {
        return EraseOutlineEdges(image, width, height, fastOutline);
      });
  if (difference.empty() && fastOutline.capacity() != outline.capacity()) {
    return std::string("the list keeps its storage");
  }
  return difference;
}
DIFFERENTIAL_TEST(OutlineErasureDifferentialTest, SameBytesAndAnEmptyList, kCases);

}  // namespace
}  // namespace quorvex::tests
