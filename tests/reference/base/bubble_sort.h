// Sorting as it is defined: adjacent exchanges, every pass in full. Slow, but its result is settled
// for every input: it is stable, and it defines what happens to values that do not compare.
#ifndef QUORVEX_TESTS_REFERENCE_BASE_BUBBLE_SORT_H_
#define QUORVEX_TESTS_REFERENCE_BASE_BUBBLE_SORT_H_

#include <cstddef>
#include <utility>

namespace quorvex::plain {

// Sorts a random-access sequence; `isAfter(earlier, later)` tells whether two neighbours stand the
// wrong way round. A strict comparison keeps equals in their order.
template <typename Sequence, typename IsAfter>
void BubbleSort(Sequence& sequence, IsAfter isAfter) {
  for (std::size_t last = sequence.size(); last-- > 1;) {
    for (std::size_t i = 0; i < last; ++i) {
      if (isAfter(sequence[i], sequence[i + 1])) {
        std::swap(sequence[i], sequence[i + 1]);
      }
    }
  }
}

}  // namespace quorvex::plain

#endif  // QUORVEX_TESTS_REFERENCE_BASE_BUBBLE_SORT_H_
