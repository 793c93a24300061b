/// @file
/// The public name of the record that the library and its host exchange.
#ifndef QUORVEX_INTERFACE_CALIBRATION_POINT_H_
#define QUORVEX_INTERFACE_CALIBRATION_POINT_H_

#include "base/calibration_point.h"

#endif  // QUORVEX_INTERFACE_CALIBRATION_POINT_H_
