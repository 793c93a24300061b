#include "benchmarks/precision/chessboard_detectors.h"

#ifdef QUORVEX_HAS_OPENCV
#include "benchmarks/precision/opencv_detectors.h"
#endif
#ifdef QUORVEX_HAS_MRGINGHAM
#include "benchmarks/precision/mrgingham_detector.h"
#endif

namespace quorvex::benchmarks {

std::vector<ChessboardDetector> ChessboardDetectors() {
  std::vector<ChessboardDetector> detectors;
#ifdef QUORVEX_HAS_OPENCV
  AddOpenCvDetectors(detectors);
#endif
#ifdef QUORVEX_HAS_MRGINGHAM
  AddMrginghamDetector(detectors);
#endif
  return detectors;
}

}  // namespace quorvex::benchmarks
