// The neighbour of a point in one of the four directions of the grid.
#ifndef QUORVEX_POSTPROCESS_NEIGHBOUR_SEARCH_H_
#define QUORVEX_POSTPROCESS_NEIGHBOUR_SEARCH_H_

#include "base/calibration_point.h"

namespace quorvex {

// Sectors of 60 degrees around the four directions.
enum Sector : int {
  kTowardsLargerX = 1,
  kTowardsSmallerX = 2,
  kTowardsLargerY = 3,
  kTowardsSmallerY = 4,
};

// Sets `found` to the nearest point more than 5 and less than 1000 pixels from `from` in the open
// sector, the first of equally near ones. False, `found` untouched, when there is none, also for
// any other sector.
bool FindNeighbourInSector(const PointList& points, const CalibrationPoint& from,
                           CalibrationPoint& found, Sector sector);

}  // namespace quorvex

#endif  // QUORVEX_POSTPROCESS_NEIGHBOUR_SEARCH_H_
