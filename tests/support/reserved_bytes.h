// Patterns in the reserved bytes of records, by which a copy is told from a record made anew.
#ifndef QUORVEX_TESTS_SUPPORT_RESERVED_BYTES_H_
#define QUORVEX_TESTS_SUPPORT_RESERVED_BYTES_H_

#include "base/calibration_point.h"

namespace quorvex::tests {

// Fills the reserved bytes with a run of values that starts at `first`.
inline CalibrationPoint Marked(CalibrationPoint point, int first) {
  for (unsigned char& byte : point.reservedAfterCol) {
    byte = static_cast<unsigned char>(first++ & 0xFF);
  }
  for (unsigned char& byte : point.reservedAfterY) {
    byte = static_cast<unsigned char>(first++ & 0xFF);
  }
  return point;
}

inline bool IsMarked(const CalibrationPoint& point, int first) {
  for (const unsigned char byte : point.reservedAfterCol) {
    if (byte != (first++ & 0xFF)) {
      return false;
    }
  }
  for (const unsigned char byte : point.reservedAfterY) {
    if (byte != (first++ & 0xFF)) {
      return false;
    }
  }
  return true;
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_RESERVED_BYTES_H_
