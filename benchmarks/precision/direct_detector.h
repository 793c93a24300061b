// The project's direct detector, as the measuring stick calls detectors.
#ifndef QUORVEX_BENCHMARKS_PRECISION_DIRECT_DETECTOR_H_
#define QUORVEX_BENCHMARKS_PRECISION_DIRECT_DETECTOR_H_

#include "benchmarks/precision/detection_score.h"

namespace quorvex::benchmarks {

// Measured and doubtful marks, without predicted ones.
Detection DetectDirectly(const tools::Picture& picture);

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_DIRECT_DETECTOR_H_
