// The residuals of a calibration as a picture: an arrow at each mark.
#ifndef QUORVEX_EXAMPLES_CALIBRATE_RESIDUAL_PICTURE_H_
#define QUORVEX_EXAMPLES_CALIBRATE_RESIDUAL_PICTURE_H_

#include <opencv2/core.hpp>
#include <string>

#include "examples/calibrate/calibration.h"

namespace calibrate {

// Half the size of the calibrated pictures. The arrows are magnified by 1, 2 or 5 times a power of
// ten, so that their lengths are seen; the caption says by how much.
cv::Mat DrawResiduals(const Calibration& calibration, const cv::Size& pictureSize,
                      const std::string& title);

}  // namespace calibrate

#endif  // QUORVEX_EXAMPLES_CALIBRATE_RESIDUAL_PICTURE_H_
