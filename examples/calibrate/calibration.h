// A fisheye camera from the marks of several pictures of one board.
#ifndef QUORVEX_EXAMPLES_CALIBRATE_CALIBRATION_H_
#define QUORVEX_EXAMPLES_CALIBRATE_CALIBRATION_H_

#include <opencv2/core.hpp>
#include <vector>

#include "examples/calibrate/detections.h"

namespace calibrate {

using View = std::vector<SeenMark>;  // the marks of one picture

struct Residual {
  double x = 0;   // pixels, where the mark was seen
  double y = 0;   // pixels
  double dx = 0;  // pixels, from there to where the calibrated camera would see it
  double dy = 0;  // pixels
};

struct Calibration {
  cv::Matx33d camera = cv::Matx33d::eye();  // focal lengths and centre, pixels
  cv::Vec4d
      coefficients;  // r = f (t + k1 t^3 + k2 t^5 + k3 t^7 + k4 t^9); Kannala and Brandt, 2006
  std::vector<Residual> residuals;  // of all marks of all views
};

// `pitch` is the board's, in millimetres. Throws std::runtime_error for fewer than three views, and
// what OpenCV throws when it finds no camera.
Calibration Calibrate(const std::vector<View>& views, double pitch, const cv::Size& pictureSize);

// Root mean square of the residuals' lengths, pixels.
double RootMeanSquare(const std::vector<Residual>& residuals);

}  // namespace calibrate

#endif  // QUORVEX_EXAMPLES_CALIBRATE_CALIBRATION_H_
