// The median of values, by which single wrong ones do not count.
#ifndef QUORVEX_PRECISE_MEDIAN_H_
#define QUORVEX_PRECISE_MEDIAN_H_

#include <algorithm>
#include <cstddef>
#include <vector>

namespace quorvex::precise {

// The upper one of the two in the middle for an even count; 0 without values. Changes their order.
inline double MedianOf(std::vector<double>& values) {
  if (values.empty()) {
    return 0.0;
  }
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_MEDIAN_H_
