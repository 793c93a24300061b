#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "preprocess/mask_spans.h"
#include "tests/reference/preprocess.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {
namespace {

std::string DifferenceOfSpans(const char* name, const TestImage& mask, const PixelSpanList& plain,
                              const PixelSpanList& fast) {
  const std::string place =
      std::to_string(mask.width) + " x " + std::to_string(mask.height) + ", " + name + " ";
  if (plain.size() != fast.size()) {
    return place + "spans: " + std::to_string(fast.size()) + ", plain " +
           std::to_string(plain.size());
  }
  for (std::size_t i = 0; i < plain.size(); ++i) {
    if (plain[i].first != fast[i].first || plain[i].last != fast[i].last) {
      return place + std::to_string(i) + ": " + std::to_string(fast[i].first) + " to " +
             std::to_string(fast[i].last) + ", plain " + std::to_string(plain[i].first) + " to " +
             std::to_string(plain[i].last);
    }
  }
  return "";
}

std::string SameSpans(CaseRandom& random) {
  const TestImage mask = RandomImage(random, RandomSize(random, 80), {0, 255, 254, 1});
  const std::string difference =
      DifferenceOfSpans("row", mask, plain::ComputeRowSpans(mask.Data(), mask.width, mask.height),
                        ComputeRowSpans(mask.Data(), mask.width, mask.height));
  if (!difference.empty()) {
    return difference;
  }
  return DifferenceOfSpans("column", mask,
                           plain::ComputeColumnSpans(mask.Data(), mask.width, mask.height),
                           ComputeColumnSpans(mask.Data(), mask.width, mask.height));
}
DIFFERENTIAL_TEST(MaskSpansDifferentialTest, SameSpans, kCases);

TEST(MaskSpansDifferentialTest, SameSpansOfMasksWithoutRowsOrColumns) {
  const unsigned char pixel = 255;
  for (const auto& [width, height] : {ImageSize{0, 5}, ImageSize{5, 0}, ImageSize{0, 0}}) {
    const TestImage mask{width, height, 0, {}};
    EXPECT_EQ(DifferenceOfSpans("row", mask, plain::ComputeRowSpans(&pixel, width, height),
                                ComputeRowSpans(&pixel, width, height)),
              "");
    EXPECT_EQ(DifferenceOfSpans("column", mask, plain::ComputeColumnSpans(&pixel, width, height),
                                ComputeColumnSpans(&pixel, width, height)),
              "");
  }
}

}  // namespace
}  // namespace quorvex::tests
