// Conversions of floating-point values to integers, defined for every value: truncation cuts
// towards zero, NaN gives 0 and values beyond the range of int give its nearest end.
#ifndef QUORVEX_BASE_ROUNDING_H_
#define QUORVEX_BASE_ROUNDING_H_

#include <limits>

namespace quorvex {

inline int TruncateToInt(double value) {
  constexpr int kLowest = std::numeric_limits<int>::min();
  constexpr int kHighest = std::numeric_limits<int>::max();
  if (value != value) {
    return 0;
  }
  if (value <= static_cast<double>(kLowest)) {
    return kLowest;
  }
  if (value >= static_cast<double>(kHighest)) {
    return kHighest;
  }
  return static_cast<int>(value);
}

// Adds one half in double and cuts towards zero. Not a mathematical rounding: -2.3 gives -1.
inline int RoundHalfUp(float value) { return TruncateToInt(static_cast<double>(value) + 0.5); }

}  // namespace quorvex

#endif  // QUORVEX_BASE_ROUNDING_H_
