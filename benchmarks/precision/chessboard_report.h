// The scenes of the first table with chessboards in place of the marks, for other detectors.
#ifndef QUORVEX_BENCHMARKS_PRECISION_CHESSBOARD_REPORT_H_
#define QUORVEX_BENCHMARKS_PRECISION_CHESSBOARD_REPORT_H_

#include "benchmarks/precision/precision_report.h"

namespace quorvex::benchmarks {

// Prints a Markdown table to standard output: of each scene one line for the direct detector on its
// marks and one for each chessboard detector on its corners. Only scenes that show whole boards.
void PrintChessboardReport(const Detector& detector, const ReportOptions& options);

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_CHESSBOARD_REPORT_H_
