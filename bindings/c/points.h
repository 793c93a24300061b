// The list behind the C interface's handle.
#ifndef QUORVEX_BINDINGS_C_POINTS_H_
#define QUORVEX_BINDINGS_C_POINTS_H_

#include "interface/calibration_point.h"
#include "interface/quorvex_c.h"

struct quorvex_points {
  PointList list;
};

#endif  // QUORVEX_BINDINGS_C_POINTS_H_
