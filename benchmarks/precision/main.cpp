// Prints how precisely the direct detector finds marks on rendered scenes. With `--write` the
// scenes are only written, for a look or for other programs. Exit code 1: a label was wrong, a
// point false, or something found where there is nothing.
#include <CLI/CLI.hpp>
#include <cstdlib>

#include "benchmarks/precision/chessboard_report.h"
#include "benchmarks/precision/direct_detector.h"
#include "benchmarks/precision/precision_report.h"
#include "benchmarks/precision/time_report.h"

namespace {

using quorvex::benchmarks::Detector;
using quorvex::benchmarks::ReportOptions;

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Measures the direct detector on scenes with known marks");
  ReportOptions options;
  bool writesOnly = false;
  bool seesTimeOnly = false;
  bool seesEmptyOnly = false;
  bool comparesChessboards = false;
  std::string folder;
  app.add_option("--only", options.only, "rows whose table or name contains this text");
  app.add_option("--seeds", options.seeds, "scenes of each row at the most")
      ->check(CLI::PositiveNumber);
  app.add_option("--keep", folder, "folder for the scenes that went wrong");
  CLI::Option* const write =
      app.add_flag("--write", writesOnly, "detect nothing; with --keep, all scenes are kept");
  app.add_flag("--time", seesTimeOnly, "only the times")->excludes(write);
  app.add_flag("--empty", seesEmptyOnly, "only the pictures without a board")->excludes(write);
  app.add_flag("--chessboards", comparesChessboards,
               "only the comparison with chessboards and the detectors for them");
  CLI11_PARSE(app, argc, argv);
  options.failures = folder;
  const Detector detector = writesOnly ? Detector() : Detector(quorvex::benchmarks::DetectDirectly);
  if (seesTimeOnly) {
    quorvex::benchmarks::PrintTimeReport(detector);
    return EXIT_SUCCESS;
  }
  if (comparesChessboards) {
    quorvex::benchmarks::PrintChessboardReport(detector, options);
    return EXIT_SUCCESS;
  }
  bool isClean = true;
  if (!seesEmptyOnly) {
    isClean = quorvex::benchmarks::PrintPrecisionReport(detector, options);
  }
  if (detector && (options.only.empty() || seesEmptyOnly)) {
    isClean = quorvex::benchmarks::PrintEmptyReport(detector, options) && isClean;
  }
  return isClean ? EXIT_SUCCESS : EXIT_FAILURE;
}
