// Sorting in the order that adjacent exchanges give (base/bubble_sort.h), in a time that suits long
// lists: both are stable, and there is one stable order unless a key does not compare.
#ifndef QUORVEX_BASE_STABLE_SORT_H_
#define QUORVEX_BASE_STABLE_SORT_H_

#include <algorithm>

#include "base/bubble_sort.h"

namespace quorvex {

// Whether every key equals itself, as all but NaN do.
template <typename Sequence, typename Key>
bool AllKeysCompare(const Sequence& sequence, Key key) {
  return std::all_of(sequence.begin(), sequence.end(),
                     [&](const auto& element) { return key(element) == key(element); });
}

// Sorts by ascending `key(element)`, a number; equals keep their order.
template <typename Sequence, typename Key>
void SortAscending(Sequence& sequence, Key key) {
  if (AllKeysCompare(sequence, key)) {
    std::stable_sort(sequence.begin(), sequence.end(),
                     [&](const auto& left, const auto& right) { return key(left) < key(right); });
  } else {
    BubbleSort(sequence,
               [&](const auto& earlier, const auto& later) { return key(earlier) > key(later); });
  }
}

// Sorts by descending `key(element)`; equals keep their order.
template <typename Sequence, typename Key>
void SortDescending(Sequence& sequence, Key key) {
  if (AllKeysCompare(sequence, key)) {
    std::stable_sort(sequence.begin(), sequence.end(),
                     [&](const auto& left, const auto& right) { return key(left) > key(right); });
  } else {
    BubbleSort(sequence,
               [&](const auto& earlier, const auto& later) { return key(later) > key(earlier); });
  }
}

}  // namespace quorvex

#endif  // QUORVEX_BASE_STABLE_SORT_H_
