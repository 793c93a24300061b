// mrgingham, a chessboard detector. Built only where it and OpenCV are there.
#ifndef QUORVEX_BENCHMARKS_PRECISION_MRGINGHAM_DETECTOR_H_
#define QUORVEX_BENCHMARKS_PRECISION_MRGINGHAM_DETECTOR_H_

#include <vector>

#include "benchmarks/precision/chessboard_detectors.h"

namespace quorvex::benchmarks {

void AddMrginghamDetector(std::vector<ChessboardDetector>& detectors);

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_MRGINGHAM_DETECTOR_H_
