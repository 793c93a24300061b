#include "tests/reference/base/bubble_sort.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace quorvex::tests {
namespace {

using Item = std::pair<int, char>;

std::vector<Item> Sorted(std::vector<Item> items) {
  plain::BubbleSort(
      items, [](const Item& earlier, const Item& later) { return earlier.first > later.first; });
  return items;
}

TEST(BubbleSort, SortsAndKeepsTheOrderOfEquals) {
  EXPECT_EQ(Sorted({{3, 'a'}, {1, 'b'}, {3, 'c'}, {2, 'd'}, {1, 'e'}}),
            (std::vector<Item>{{1, 'b'}, {1, 'e'}, {2, 'd'}, {3, 'a'}, {3, 'c'}}));
}

TEST(BubbleSort, LeavesShortSequencesAlone) {
  EXPECT_EQ(Sorted({}), std::vector<Item>());
  EXPECT_EQ(Sorted({{1, 'a'}}), (std::vector<Item>{{1, 'a'}}));
  EXPECT_EQ(Sorted({{2, 'a'}, {1, 'b'}}), (std::vector<Item>{{1, 'b'}, {2, 'a'}}));
}

}  // namespace
}  // namespace quorvex::tests
