// Runs a detector on the scenes of the measuring stick and prints how well it did, row by row.
#ifndef QUORVEX_BENCHMARKS_PRECISION_PRECISION_REPORT_H_
#define QUORVEX_BENCHMARKS_PRECISION_PRECISION_REPORT_H_

#include <filesystem>
#include <string>
#include <vector>

#include "benchmarks/precision/detection_score.h"
#include "benchmarks/precision/scene_sets.h"

namespace quorvex::benchmarks {

struct ReportOptions {
  std::string only;                // rows whose table or name contains this; all when empty
  int seeds = 0;                   // of each row at the most; 0 for all
  std::filesystem::path failures;  // where a scene with a failure leaves picture, truth and points,
                                   // and every scene when there is no detector; empty for nowhere
};

// One scene's result. The time is the processor's, of the detector alone.
Score RunScene(const Detector& detector, const Scene& scene, std::uint64_t seed,
               const ReportOptions& options);

// Prints Markdown tables to standard output and failures to standard error. Returns whether no
// label was wrong and no point false.
bool PrintPrecisionReport(const Detector& detector, const ReportOptions& options);

// The pictures without a board; returns whether the detector returned nothing and a reason for all.
bool PrintEmptyReport(const Detector& detector, const ReportOptions& options);

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_PRECISION_REPORT_H_
