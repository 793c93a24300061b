#include "tests/reference/grid.h"

#include "grid/point_order.h"
#include "tests/reference/base/bubble_sort.h"

namespace quorvex::plain {

void SortPointsByX(PointList& points) {
  BubbleSort(points, [](const CalibrationPoint& earlier, const CalibrationPoint& later) {
    return earlier.x > later.x;
  });
}

void SortPointsByY(PointList& points, int direction) {
  if (direction == kAscending) {
    BubbleSort(points, [](const CalibrationPoint& earlier, const CalibrationPoint& later) {
      return earlier.y > later.y;
    });
  } else if (direction == kDescending) {
    BubbleSort(points, [](const CalibrationPoint& earlier, const CalibrationPoint& later) {
      return later.y > earlier.y;
    });
  }
}

}  // namespace quorvex::plain
