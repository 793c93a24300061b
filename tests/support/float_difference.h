// Comparison of floats by their bits, in words.
#ifndef QUORVEX_TESTS_SUPPORT_FLOAT_DIFFERENCE_H_
#define QUORVEX_TESTS_SUPPORT_FLOAT_DIFFERENCE_H_

#include <cstdio>
#include <string>

#include "crossmark/line_segment.h"
#include "tests/support/points.h"

namespace quorvex::tests {

// Which of two operands' NaN a sum hands on is the compiler's choice: one NaN is as good as another
// where a value was computed.
inline bool IsSameFloat(float plain, float fast) {
  return Bits(plain) == Bits(fast) || (plain != plain && fast != fast);
}

inline std::string FloatDifference(const std::string& name, float plain, float fast) {
  if (IsSameFloat(plain, fast)) {
    return "";
  }
  char text[80];
  std::snprintf(text, sizeof text, " is %a, plain %a", static_cast<double>(fast),
                static_cast<double>(plain));
  return name + text;
}

inline std::string PointDifference(const std::string& name, PointF plain, PointF fast) {
  const std::string difference = FloatDifference(name + ".x", plain.x, fast.x);
  return difference.empty() ? FloatDifference(name + ".y", plain.y, fast.y) : difference;
}

inline std::string PointsDifference(const std::string& name, const PointFList& plain,
                                    const PointFList& fast) {
  if (plain.size() != fast.size()) {
    return name + ": " + std::to_string(fast.size()) + " points, plain " +
           std::to_string(plain.size());
  }
  for (std::size_t i = 0; i < plain.size(); ++i) {
    const std::string difference =
        PointDifference(name + ", point " + std::to_string(i), plain[i], fast[i]);
    if (!difference.empty()) {
      return difference;
    }
  }
  return "";
}

inline std::string LineDifference(const std::string& name, const LineSegment& plain,
                                  const LineSegment& fast) {
  for (const std::string& difference : {FloatDifference(name + ".a", plain.a, fast.a),
                                        FloatDifference(name + ".b", plain.b, fast.b),
                                        FloatDifference(name + ".c", plain.c, fast.c),
                                        FloatDifference(name + ".angle", plain.angle, fast.angle),
                                        PointDifference(name + ".start", plain.start, fast.start),
                                        PointDifference(name + ".end", plain.end, fast.end),
                                        PointsDifference(name, plain.points, fast.points)}) {
    if (!difference.empty()) {
      return difference;
    }
  }
  return "";
}

inline std::string LinesDifference(const LineSegmentList& plain, const LineSegmentList& fast) {
  if (plain.size() != fast.size()) {
    return std::to_string(fast.size()) + " lines, plain " + std::to_string(plain.size());
  }
  for (std::size_t i = 0; i < plain.size(); ++i) {
    const std::string difference = LineDifference("line " + std::to_string(i), plain[i], fast[i]);
    if (!difference.empty()) {
      return difference;
    }
  }
  return "";
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_FLOAT_DIFFERENCE_H_
