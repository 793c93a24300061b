#include <fmt/format.h>

#include <filesystem>
#include <memory>
#include <string>

#include "tools/compare/compare_points.h"
#include "tools/compare/compare_report.h"
#include "tools/errors.h"
#include "tools/lists/points_file.h"
#include "tools/lists/truth_file.h"
#include "tools/subcommands.h"
#include "tools/system/choice_option.h"
#include "tools/system/output_file.h"
#include "tools/system/path_option.h"

namespace quorvex::tools {
namespace {

enum class ReportFormat { kText, kJson };

struct CompareOptions {
  std::filesystem::path pointsPath;
  std::filesystem::path truthPath;
  double tolerance = 20;  // pixels
  double maxRms = 0;      // pixels; 0 for no limit
  ReportFormat format = ReportFormat::kText;
  std::string image;     // whose points; empty when the file holds one image's only
  bool details = false;  // also list what does not agree
};

constexpr Choice<ReportFormat> kReportFormats[] = {{"text", ReportFormat::kText},
                                                   {"json", ReportFormat::kJson}};

int RunCompare(const CompareOptions& options) {
  const Comparison comparison =
      ComparePoints(ReadOneImageFile(options.pointsPath, options.image).list.points,
                    ReadTruthFile(options.truthPath), options.tolerance);
  std::string report;
  if (options.format == ReportFormat::kJson) {
    report = ReportAsJson(comparison, options.details);
  } else {
    report = ReportAsText(comparison) + (options.details ? '\n' + DetailsAsCsv(comparison) : "");
  }
  WriteToStandardOutput(report);
  if (options.maxRms > 0 && comparison.found.rms > options.maxRms) {
    fmt::print(stderr, "quorvex: the RMS error of {:.3f} px is above {:g} px\n",
               comparison.found.rms, options.maxRms);
    return kExitNothingFound;
  }
  return comparison.IsComplete() ? kExitSuccess : kExitNothingFound;
}

}  // namespace

void AddCompareCommand(CLI::App& app, Action& action) {
  const auto options = std::make_shared<CompareOptions>();
  CLI::App* command =
      app.add_subcommand("compare", "Compare detected points with the known marks of the target");
  AddPathOption(*command, "points", options->pointsPath, "CSV or JSON file that detect wrote")
      ->required()
      ->option_text("POINTS");
  AddPathOption(*command, "truth", options->truthPath,
                "CSV file with the columns row, col, x, y [pixels], missing [0 or 1]")
      ->required()
      ->option_text("TRUTH");
  command
      ->add_option("--tolerance", options->tolerance,
                   "largest distance between a point and its mark [pixels]")
      ->check(CLI::Range(0.001, 1000.0))
      ->option_text("PX=20");
  command
      ->add_option("--max-rms", options->maxRms,
                   "fail when the RMS error over the visible marks is larger [pixels]")
      ->check(CLI::PositiveNumber)
      ->option_text("PX");
  CLI::Option* format = AddChoiceOption(
      *command, "--format", kReportFormats,
      [options](ReportFormat chosen) { options->format = chosen; }, "text or json");
  format->option_text("NAME=text");
  command
      ->add_option("--image", options->image,
                   "the image whose points are compared, where POINTS holds several")
      ->option_text("NAME");
  command->add_flag(
      "--details", options->details,
      "also list the marks that were missed and the points that are extra or have "
      "another row or column than their mark; as CSV after the text, in JSON as \"details\"");
  command->footer(
      "Exit code 0: every visible mark was found, no point is extra and all labels agree;\n"
      "1: not so, or the RMS error is above --max-rms; 2: bad usage or input.\n\n"
      "Examples:\n"
      "  quorvex detect target.bmp --output points.csv\n"
      "  quorvex compare points.csv target.csv --details\n"
      "  quorvex compare points.csv target.csv --tolerance 5 --max-rms 0.5 --format json");
  command->callback([options, &action] { action = [options] { return RunCompare(*options); }; });
}

}  // namespace quorvex::tools
