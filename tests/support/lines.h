// Lines and point lists written short, and their comparison to the bit.
#ifndef QUORVEX_TESTS_SUPPORT_LINES_H_
#define QUORVEX_TESTS_SUPPORT_LINES_H_

#include <cstdint>
#include <random>
#include <utility>
#include <vector>

#include "crossmark/line_segment.h"
#include "tests/support/points.h"

namespace quorvex::tests {

using BitList = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

inline BitList BitsOf(const PointFList& points) {
  BitList bits;
  for (const PointF& point : points) {
    bits.emplace_back(Bits(point.x), Bits(point.y));
  }
  return bits;
}

inline std::vector<std::uint32_t> BitsOf(const std::vector<float>& values) {
  std::vector<std::uint32_t> bits;
  for (const float value : values) {
    bits.push_back(Bits(value));
  }
  return bits;
}

inline LineSegment MakeLine(float a, float b, float c) {
  LineSegment line;
  line.a = a;
  line.b = b;
  line.c = c;
  return line;
}

// A line for each list, with nothing set but its points.
inline LineSegmentList LinesThrough(const std::vector<PointFList>& pointLists) {
  LineSegmentList lines;
  for (const PointFList& points : pointLists) {
    lines.emplace_back();
    lines.back().points = points;
  }
  return lines;
}

// Whole pixels of a row, from firstX to lastX.
inline PointFList RowPoints(float y, int firstX, int lastX) {
  PointFList points;
  for (int x = firstX; x <= lastX; ++x) {
    points.push_back({static_cast<float>(x), y});
  }
  return points;
}

inline PointFList ColumnPoints(float x, int firstY, int lastY) {
  PointFList points;
  for (int y = firstY; y <= lastY; ++y) {
    points.push_back({x, static_cast<float>(y)});
  }
  return points;
}

inline PointFList Joined(PointFList first, const PointFList& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

inline float RandomFloat(std::mt19937& random, float low, float high) {
  return low + (high - low) * static_cast<float>(random() % 1000003) / 1000003.0f;
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_LINES_H_
