#include "tools/compare/compare_report.h"

#include <fmt/format.h>

namespace quorvex::tools {
namespace {

const char* LabelsName(Labels labels) {
  switch (labels) {
    case Labels::kAgree:
      return "agree";
    case Labels::kOffset:
      return "offset";
    case Labels::kTransposed:
      return "transposed";
    case Labels::kDisagree:
      break;
  }
  return "disagree";
}

std::string DescribeLabels(const Comparison& c) {
  switch (c.labels) {
    case Labels::kAgree:
      return "agree";
    case Labels::kOffset:
      return fmt::format("all off by {:+} rows and {:+} columns", c.rowOffset, c.columnOffset);
    case Labels::kTransposed:
      return "rows and columns are exchanged";
    case Labels::kDisagree:
      break;
  }
  return fmt::format("{} points have another row or column than their mark", c.wrongLabels);
}

std::string ErrorsAsText(const ErrorStatistics& e) {
  if (e.count == 0) return "";
  return fmt::format(", error RMS {:.3f} px, median {:.3f} px, max {:.3f} px", e.rms, e.median,
                     e.max);
}

std::string ErrorsAsJson(const ErrorStatistics& e) {
  return fmt::format("{{\"count\": {}, \"rms\": {:.9g}, \"median\": {:.9g}, \"max\": {:.9g}}}",
                     e.count, e.rms, e.median, e.max);
}

}  // namespace

std::string ReportAsText(const Comparison& c) {
  std::string text;
  text +=
      fmt::format("found      {} of {}{}\n", c.found.count, c.visibleMarks, ErrorsAsText(c.found));
  text += fmt::format("missed     {}\n", c.missed);
  text += fmt::format("extra      {}\n", c.extra);
  if (c.leftOutMarks > 0) {
    text += fmt::format("filled in  {} of {}{}\n", c.filledIn.count, c.leftOutMarks,
                        ErrorsAsText(c.filledIn));
  }
  text += fmt::format("labels     {}\n", DescribeLabels(c));
  return text;
}

std::string ReportAsJson(const Comparison& c) {
  return fmt::format(
      "{{\n \"visible_marks\": {},\n \"left_out_marks\": {},\n \"missed\": {},\n \"extra\": {},\n"
      " \"found\": {},\n \"filled_in\": {},\n \"labels\": \"{}\",\n \"wrong_labels\": {},\n"
      " \"row_offset\": {},\n \"column_offset\": {},\n \"complete\": {}\n}}\n",
      c.visibleMarks, c.leftOutMarks, c.missed, c.extra, ErrorsAsJson(c.found),
      ErrorsAsJson(c.filledIn), LabelsName(c.labels), c.wrongLabels, c.rowOffset, c.columnOffset,
      c.IsComplete());
}

}  // namespace quorvex::tools
