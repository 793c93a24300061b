// The detection of the calibration points of one image. Results are those that interface/quorvex.h
// states.
#ifndef QUORVEX_INTERFACE_DETECTION_DRIVER_H_
#define QUORVEX_INTERFACE_DETECTION_DRIVER_H_

#include "base/calibration_point.h"

namespace quorvex {

bool SingleCamDetectCalibrationPoint(const unsigned char* image, long imageWidth, long imageHeight,
                                     int bitsPerPixel, int rowSpan, int columnSpan, float unused1,
                                     float unused2, int rowSteps, PointList& points);

}  // namespace quorvex

#endif  // QUORVEX_INTERFACE_DETECTION_DRIVER_H_
