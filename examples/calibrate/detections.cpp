#include "examples/calibrate/detections.h"

#include <opencv2/imgcodecs.hpp>
#include <stdexcept>

#include "interface/quorvex.h"
#include "interface/quorvex_precise.h"

namespace calibrate {

cv::Mat ReadGreyPicture(const std::string& path) {
  cv::Mat picture = cv::imread(path, cv::IMREAD_GRAYSCALE);
  if (picture.empty()) {
    throw std::runtime_error(path + ": cannot be read as a picture");
  }
  return picture;
}

PointList DetectPoints(const cv::Mat& picture) {
  // The function takes the bottom row first, and rows without gaps.
  cv::Mat bottomUp;
  cv::flip(picture, bottomUp, 0);
  PointList points;
  const bool isFound = SingleCamDetectCalibrationPoint(
      bottomUp.data, bottomUp.cols, bottomUp.rows, 8 /* bits a pixel */, 20 /* row span */,
      20 /* column span */, 0, 0, 300 /* row steps */, points);
  return isFound ? points : PointList();
}

std::vector<SeenMark> DetectPlainly(const cv::Mat& picture) {
  std::vector<SeenMark> marks;
  for (const CalibrationPoint& point : DetectPoints(picture)) {
    marks.push_back({point.row, point.col, point.x, point.y});
  }
  return marks;
}

std::vector<SeenMark> DetectPrecisely(const cv::Mat& picture) {
  const quorvex::precise::ImageView view = {picture.data, picture.cols, picture.rows,
                                            static_cast<std::ptrdiff_t>(picture.step)};
  std::vector<SeenMark> marks;
  for (const quorvex::precise::Mark& mark : quorvex::precise::Detect(view).marks) {
    if (mark.verdict == quorvex::precise::Verdict::kMeasured) {
      marks.push_back({mark.row, mark.column, mark.x, mark.y});
    }
  }
  return marks;
}

}  // namespace calibrate
