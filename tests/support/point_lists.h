// What whole lists of points have to be.
#ifndef QUORVEX_TESTS_SUPPORT_POINT_LISTS_H_
#define QUORVEX_TESTS_SUPPORT_POINT_LISTS_H_

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstring>

#include "interface/calibration_point.h"

namespace quorvex::tests {

// The same records, also in the bytes between their fields.
inline void ExpectSameBytes(const PointList& points, const PointList& expected) {
  ASSERT_EQ(points.size(), expected.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_EQ(std::memcmp(&points[i], &expected[i], sizeof points[i]), 0)
        << i << ": id " << points[i].id << " row " << points[i].row << " col " << points[i].col;
  }
}

// Ids from 1 on in the order of the list, row by row.
inline void ExpectNumberedGrid(const PointList& points, int rows, int columns) {
  ASSERT_EQ(points.size(), static_cast<std::size_t>(rows * columns));
  for (int i = 0; i < rows * columns; ++i) {
    const CalibrationPoint& point = points[static_cast<std::size_t>(i)];
    EXPECT_EQ(point.id, i + 1);
    EXPECT_EQ(point.row, i / columns);
    EXPECT_EQ(point.col, i % columns);
  }
}

// The row or column, from 0 on, at a position of a board whose marks are 150 pixels apart from 100
// on.
inline int CellAt(float position) {
  return static_cast<int>(std::lround((position - 100.0f) / 150.0f));
}

// 5 x 5 such marks, in any order and whatever their ids. Row 0 has the largest y.
inline void ExpectPlacesOfFiveByFive(const PointList& points) {
  EXPECT_EQ(points.size(), 25u);
  for (const CalibrationPoint& point : points) {
    EXPECT_EQ(point.col, CellAt(point.x));
    EXPECT_EQ(point.row, 4 - CellAt(point.y));
  }
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_POINT_LISTS_H_
