// The two detections of the library, in one form for the calibration.
#ifndef QUORVEX_EXAMPLES_CALIBRATE_DETECTIONS_H_
#define QUORVEX_EXAMPLES_CALIBRATE_DETECTIONS_H_

#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "interface/calibration_point.h"

namespace calibrate {

struct SeenMark {
  int row = 0;     // counted from the first row that was found in this picture
  int column = 0;  // likewise
  double x = 0;    // pixels, integer values at pixel centres, to the right
  double y = 0;    // pixels, down
};

// An 8-bit grey picture. Throws std::runtime_error naming the file when it cannot be read.
cv::Mat ReadGreyPicture(const std::string& path);

// The detection of interface/quorvex.h; empty when it found no grid. It leaves its diagnostic
// pictures in the current folder.
PointList DetectPoints(const cv::Mat& picture);
std::vector<SeenMark> DetectPlainly(const cv::Mat& picture);

// The detection of interface/quorvex_precise.h, without the marks that it doubts.
std::vector<SeenMark> DetectPrecisely(const cv::Mat& picture);

}  // namespace calibrate

#endif  // QUORVEX_EXAMPLES_CALIBRATE_DETECTIONS_H_
