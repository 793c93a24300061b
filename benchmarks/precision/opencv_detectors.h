// OpenCV's chessboard detectors. Built only where OpenCV is there.
#ifndef QUORVEX_BENCHMARKS_PRECISION_OPENCV_DETECTORS_H_
#define QUORVEX_BENCHMARKS_PRECISION_OPENCV_DETECTORS_H_

#include <vector>

#include "benchmarks/precision/chessboard_detectors.h"

namespace quorvex::benchmarks {

// Sets OpenCV to one thread.
void AddOpenCvDetectors(std::vector<ChessboardDetector>& detectors);

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_OPENCV_DETECTORS_H_
