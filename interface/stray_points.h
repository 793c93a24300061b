// The last steps before the list goes back to the host.
#ifndef QUORVEX_INTERFACE_STRAY_POINTS_H_
#define QUORVEX_INTERFACE_STRAY_POINTS_H_

#include "base/calibration_point.h"

namespace quorvex {

// Removes the points outside the image and those less than 3 pixels, in x and in y, from a point
// earlier in the list.
void RemoveStrayPoints(int width, int height, PointList& points);

// Counts y from the last buffer row, the top of the picture, instead of the first.
void TurnUpsideDown(int height, PointList& points);

}  // namespace quorvex

#endif  // QUORVEX_INTERFACE_STRAY_POINTS_H_
