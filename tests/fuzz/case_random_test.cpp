#include "tests/support/case_random.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>

namespace quorvex::tests {
namespace {

TEST(CaseRandom, BytesDecideOneAChoiceWhereThatIsEnough) {
  const std::uint8_t bytes[] = {7, 255, 1, 2, 1, 2, 3, 4, 5};
  CaseRandom random(1, bytes, sizeof bytes);
  EXPECT_EQ(random.Below(5), 2);
  EXPECT_EQ(random.Below(256), 255);
  EXPECT_EQ(random.Below(257), (1 * 256 + 2) % 257);
  EXPECT_EQ(random.Next(), 0x01020304u);
  EXPECT_EQ(random.OneOf({10, 20, 30}), 30);
}

TEST(CaseRandom, BehindTheBytesTheSeedDecides) {
  const std::uint8_t byte = 9;
  CaseRandom random(3, &byte, 1);
  EXPECT_EQ(random.Next(), 9u);
  CaseRandom seeded(3);
  for (const int count : {2, 300, 100'000}) {
    EXPECT_EQ(random.Below(count), seeded.Below(count));
  }
  EXPECT_EQ(random.Next(), seeded.Next());
}

}  // namespace
}  // namespace quorvex::tests
