// Tracing of a grid line from point to point of a list.
#ifndef QUORVEX_POSTPROCESS_GRID_LINE_TRACE_H_
#define QUORVEX_POSTPROCESS_GRID_LINE_TRACE_H_

#include "base/calibration_point.h"

namespace quorvex {

// Continues the line from `previous` through `current`, 100 points at the most, and appends the
// points found to `output`. Each next point lies within 30 degrees of straight ahead and strictly
// nearer than the step before was long: the spacing in a fisheye image shrinks away from its
// centre. `previous` and `current` are moved along.
void TraceGridLine(const PointList& points, CalibrationPoint& previous, CalibrationPoint& current,
                   PointList& output);

}  // namespace quorvex

#endif  // QUORVEX_POSTPROCESS_GRID_LINE_TRACE_H_
