#include "benchmarks/precision/mrgingham_detector.h"

#include <algorithm>
#include <cstdlib>
#include <mrgingham/mrgingham.hh>
#include <opencv2/core.hpp>

namespace quorvex::benchmarks {
namespace {

constexpr int kAnyLevel = -1;  // of the pyramid: the first that gives a board

// It knows square boards only.
Detection FindCorners(const tools::Picture& picture, int rows, int columns) {
  if (rows != columns) {
    return {{}, "not square"};
  }
  cv::Mat matrix(picture.height, picture.width, CV_8UC1);
  std::copy(picture.pixels.begin(), picture.pixels.end(), matrix.ptr());
  std::vector<mrgingham::PointDouble> corners;
  signed char* levels = nullptr;  // asks for refinement
  const int level =
      mrgingham::find_chessboard_from_image_array(corners, &levels, rows, matrix, kAnyLevel);
  std::free(levels);
  Detection detection;
  if (level < 0) {
    detection.reason = "no board";
    return detection;
  }
  for (std::size_t i = 0; i < corners.size(); ++i) {
    FoundMark mark;
    mark.row = static_cast<int>(i) / columns;
    mark.column = static_cast<int>(i) % columns;
    mark.x = corners[i].x;
    mark.y = corners[i].y;
    detection.marks.push_back(mark);
  }
  return detection;
}

}  // namespace

void AddMrginghamDetector(std::vector<ChessboardDetector>& detectors) {
  detectors.push_back({"mrgingham", FindCorners});
}

}  // namespace quorvex::benchmarks
