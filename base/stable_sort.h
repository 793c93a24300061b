// Sorting in the order that adjacent exchanges give, every pass in full, in a time that suits long
// lists. That order is settled for every input: equals keep their places, and a value that does not
// compare, NaN, keeps its own. Nothing is ever exchanged with it, so that what stands on its two
// sides is sorted on its own.
#ifndef QUORVEX_BASE_STABLE_SORT_H_
#define QUORVEX_BASE_STABLE_SORT_H_

#include <algorithm>

namespace quorvex {

// Sorts what stands between keys that do not compare; `isBefore(left, right)` is strict.
template <typename Sequence, typename Key, typename IsBefore>
void SortBetweenNaNs(Sequence& sequence, Key key, IsBefore isBefore) {
  const auto isNaN = [&](const auto& element) { return key(element) != key(element); };
  for (auto first = sequence.begin(); first != sequence.end();) {
    const auto last = std::find_if(first, sequence.end(), isNaN);
    std::stable_sort(first, last, isBefore);
    first =
        std::find_if(last, sequence.end(), [&](const auto& element) { return !isNaN(element); });
  }
}

// Sorts by ascending `key(element)`, a number.
template <typename Sequence, typename Key>
void SortAscending(Sequence& sequence, Key key) {
  SortBetweenNaNs(sequence, key,
                  [&](const auto& left, const auto& right) { return key(left) < key(right); });
}

// Sorts by descending `key(element)`.
template <typename Sequence, typename Key>
void SortDescending(Sequence& sequence, Key key) {
  SortBetweenNaNs(sequence, key,
                  [&](const auto& left, const auto& right) { return key(left) > key(right); });
}

}  // namespace quorvex

#endif  // QUORVEX_BASE_STABLE_SORT_H_
