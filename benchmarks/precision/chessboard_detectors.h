// Chessboard detectors of other libraries, for a comparison on the same boards and poses. Which of
// them there are depends on what the build found.
#ifndef QUORVEX_BENCHMARKS_PRECISION_CHESSBOARD_DETECTORS_H_
#define QUORVEX_BENCHMARKS_PRECISION_CHESSBOARD_DETECTORS_H_

#include <functional>
#include <string>
#include <vector>

#include "benchmarks/precision/detection_score.h"

namespace quorvex::benchmarks {

struct ChessboardDetector {
  std::string name;
  // The labels of the corners are as the detector orders them, or -1 where it does not say.
  std::function<Detection(const tools::Picture& picture, int rows, int columns)> detect;
};

std::vector<ChessboardDetector> ChessboardDetectors();

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_CHESSBOARD_DETECTORS_H_
