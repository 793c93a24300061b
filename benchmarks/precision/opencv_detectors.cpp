#include "benchmarks/precision/opencv_detectors.h"

#include <opencv2/calib3d.hpp>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

namespace quorvex::benchmarks {
namespace {

constexpr int kHalfWindow = 5;          // pixels, of the refinement of a corner
constexpr int kMaxIterations = 100;     // of the refinement
constexpr double kSmallestStep = 1e-4;  // pixels; the refinement ends below it

cv::Mat MatrixOf(const tools::Picture& picture) {
  cv::Mat matrix(picture.height, picture.width, CV_8UC1);
  std::copy(picture.pixels.begin(), picture.pixels.end(), matrix.ptr());
  return matrix;
}

Detection DetectionOf(const std::vector<cv::Point2f>& corners, int columns) {
  Detection detection;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    FoundMark mark;
    mark.row = static_cast<int>(i) / columns;
    mark.column = static_cast<int>(i) % columns;
    mark.x = static_cast<double>(corners[i].x);
    mark.y = static_cast<double>(corners[i].y);
    detection.marks.push_back(mark);
  }
  return detection;
}

Detection FindCorners(const tools::Picture& picture, int rows, int columns) {
  const cv::Mat matrix = MatrixOf(picture);
  std::vector<cv::Point2f> corners;
  if (!cv::findChessboardCorners(matrix, cv::Size(columns, rows), corners)) {
    return {{}, "no board"};
  }
  cv::cornerSubPix(matrix, corners, cv::Size(kHalfWindow, kHalfWindow), cv::Size(-1, -1),
                   cv::TermCriteria(cv::TermCriteria::EPS + cv::TermCriteria::COUNT, kMaxIterations,
                                    kSmallestStep));
  return DetectionOf(corners, columns);
}

Detection FindCornersBySectors(const tools::Picture& picture, int rows, int columns) {
  std::vector<cv::Point2f> corners;
  const int flags = cv::CALIB_CB_EXHAUSTIVE | cv::CALIB_CB_ACCURACY;
  if (!cv::findChessboardCornersSB(MatrixOf(picture), cv::Size(columns, rows), corners, flags)) {
    return {{}, "no board"};
  }
  return DetectionOf(corners, columns);
}

}  // namespace

void AddOpenCvDetectors(std::vector<ChessboardDetector>& detectors) {
  cv::setNumThreads(1);
  detectors.push_back({"findChessboardCorners, cornerSubPix", FindCorners});
  detectors.push_back({"findChessboardCornersSB", FindCornersBySectors});
}

}  // namespace quorvex::benchmarks
