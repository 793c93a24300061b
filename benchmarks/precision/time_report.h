// How long the direct detector takes.
#ifndef QUORVEX_BENCHMARKS_PRECISION_TIME_REPORT_H_
#define QUORVEX_BENCHMARKS_PRECISION_TIME_REPORT_H_

#include "benchmarks/precision/detection_score.h"

namespace quorvex::benchmarks {

// Prints a Markdown table to standard output: the least of five calls, processor time.
void PrintTimeReport(const Detector& detector);

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_TIME_REPORT_H_
