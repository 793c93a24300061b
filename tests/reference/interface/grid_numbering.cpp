#include "tests/reference/base/bubble_sort.h"
#include "tests/reference/interface.h"

namespace quorvex::plain {

void SortPointsById(PointList& points) {
  BubbleSort(points, [](const CalibrationPoint& earlier, const CalibrationPoint& later) {
    return earlier.id > later.id;
  });
}

}  // namespace quorvex::plain
