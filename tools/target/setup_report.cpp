#include "tools/target/setup_report.h"

#include <fmt/format.h>

#include <cmath>

#include "tools/target/setup_verdict.h"

namespace quorvex::tools {
namespace {

constexpr double kBestRotation = 17;  // degrees, of the plain detection; 26 is the other end

std::string SpreadLine(const char* name, const Spread& spread, int digits) {
  return fmt::format("{:<10}{:>10.{}f}{:>10.{}f}{:>10.{}f}\n", name, spread.smallest, digits,
                     spread.median, digits, spread.largest, digits);
}

std::string Verdict(const std::string& command, const std::string& success,
                    const Problems& problems) {
  if (problems.empty()) {
    return fmt::format("{}: {}\n", command, success);
  }
  std::string text = fmt::format("{}: is not sure to find the marks\n", command);
  for (const std::string& problem : problems) {
    text += "  - " + problem + "\n";
  }
  return text;
}

std::string MeasuresText(const SetupMeasures& measures) {
  std::string text =
      fmt::format("{} of {} marks are in the picture\n", measures.marksInPicture, measures.marks);
  if (measures.marksInPicture == 0) {
    return text;
  }
  text += "pixels      smallest    median   largest\n";
  text += SpreadLine("spacing", measures.spacing, 0);
  text += SpreadLine("arms", measures.arms, 0);
  text += SpreadLine("strokes", measures.strokes, 1);
  if (measures.isEdgeInPicture) {
    text += fmt::format("margin    {:>10.0f}\n", measures.border);
  }
  return text;
}

}  // namespace

SetupReport ReportSetup(const RenderSettings& settings, const BoardMargins& margins) {
  const SetupMeasures measures = MeasureSetup(settings, margins);
  const Problems plain = ProblemsOfPlainDetection(settings, measures);
  const Problems precise = ProblemsOfPreciseDetection(settings, measures);
  SetupReport report;
  report.text = MeasuresText(measures);
  report.text +=
      "\n" + Verdict("quorvex detect",
                     fmt::format("will find the {} marks, or all but a few", measures.marks),
                     plain);
  if (plain.empty() && std::abs(settings.rotation) < kBestRotation) {
    report.text += "  it measures best with the board turned by 17 to 26 degrees\n";
  }
  report.text += Verdict("quorvex detect --precise",
                         fmt::format("will find the {} marks", measures.marksInPicture), precise);
  report.isFound = plain.empty() || precise.empty();
  return report;
}

}  // namespace quorvex::tools
