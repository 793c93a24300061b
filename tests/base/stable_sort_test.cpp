#include "base/stable_sort.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "tests/reference/base/bubble_sort.h"

namespace quorvex::tests {
namespace {

struct Entry {
  float key;
  int place;
};

float KeyOf(const Entry& entry) { return entry.key; }

// Few different keys, so that many are equal, with zeros of both signs and, in a share of the
// lists, values that do not compare.
std::vector<Entry> RandomEntries(std::mt19937& random, bool withNaN) {
  constexpr float kKeys[] = {-1.5f, -0.0f, 0.0f, 2.0f, 3.0f, 1e30f, -1e30f};
  std::vector<Entry> entries(random() % 40);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const bool isNaN = withNaN && random() % 4 == 0;
    entries[i] = {isNaN ? std::numeric_limits<float>::quiet_NaN() : kKeys[random() % 7],
                  static_cast<int>(i)};
  }
  return entries;
}

std::vector<int> Places(const std::vector<Entry>& entries) {
  std::vector<int> places;
  for (const Entry& entry : entries) {
    places.push_back(entry.place);
  }
  return places;
}

TEST(StableSort, GivesTheOrderOfAdjacentExchanges) {
  for (unsigned seed = 0; seed < 20'000; ++seed) {
    std::mt19937 random(seed);
    const std::vector<Entry> entries = RandomEntries(random, seed % 2 != 0);
    std::vector<Entry> sorted = entries;
    std::vector<Entry> expected = entries;
    SortAscending(sorted, KeyOf);
    plain::BubbleSort(expected, [](const Entry& l, const Entry& r) { return l.key > r.key; });
    ASSERT_EQ(Places(sorted), Places(expected)) << "ascending, seed " << seed;
    sorted = entries;
    expected = entries;
    SortDescending(sorted, KeyOf);
    plain::BubbleSort(expected, [](const Entry& l, const Entry& r) { return r.key > l.key; });
    ASSERT_EQ(Places(sorted), Places(expected)) << "descending, seed " << seed;
  }
}

}  // namespace
}  // namespace quorvex::tests
