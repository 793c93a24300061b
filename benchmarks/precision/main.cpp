// Prints how precisely the direct detector finds marks on rendered scenes. With `--write` the
// scenes are only written, for a look or for other programs.
#include <CLI/CLI.hpp>
#include <cstdlib>

#include "benchmarks/precision/chessboard_report.h"
#include "benchmarks/precision/precision_report.h"

namespace {

using quorvex::benchmarks::Detection;
using quorvex::benchmarks::Detector;
using quorvex::benchmarks::ReportOptions;

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Measures the direct detector on scenes with known marks");
  ReportOptions options;
  bool writesOnly = false;
  bool comparesChessboards = false;
  std::string folder;
  app.add_option("--only", options.only, "rows whose table or name contains this text");
  app.add_option("--seeds", options.seeds, "scenes of each row at the most")
      ->check(CLI::PositiveNumber);
  app.add_option("--keep", folder, "folder for the scenes that went wrong");
  app.add_flag("--write", writesOnly, "detect nothing, and keep all scenes");
  app.add_flag("--chessboards", comparesChessboards,
               "only the comparison with chessboards and the detectors for them");
  CLI11_PARSE(app, argc, argv);
  options.failures = folder;
  if (comparesChessboards) {
    quorvex::benchmarks::PrintChessboardReport(Detector(), options);
    return EXIT_SUCCESS;
  }
  quorvex::benchmarks::PrintPrecisionReport(Detector(), options);
  return EXIT_SUCCESS;
}
