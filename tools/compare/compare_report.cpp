#include "tools/compare/compare_report.h"

#include <fmt/format.h>

#include <iterator>
#include <string>
#include <vector>

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
  if (e.count == 0) {
    return "";
  }
  return fmt::format(", error RMS {:.3f} px, median {:.3f} px, max {:.3f} px", e.rms, e.median,
                     e.max);
}

std::string ErrorsAsJson(const ErrorStatistics& e) {
  return fmt::format("{{\"count\": {}, \"rms\": {:.9g}, \"median\": {:.9g}, \"max\": {:.9g}}}",
                     e.count, e.rms, e.median, e.max);
}

std::string PlaceAsJson(const char* kind, int row, int column, double x, double y) {
  return fmt::format(
      "\n  {{\"kind\": \"{}\", \"row\": {}, \"col\": {}, \"x\": {:.9g}, \"y\": {:.9g}", kind, row,
      column, x, y);
}

std::string DetailsAsJson(const Comparison& c) {
  std::vector<std::string> places;
  for (const TruthMark& mark : c.missedMarks) {
    places.push_back(PlaceAsJson("missed", mark.row, mark.column, mark.x, mark.y) + "}");
  }
  for (const ListedPoint& p : c.extraPoints) {
    places.push_back(PlaceAsJson("extra", p.row, p.col, p.x, p.y) + "}");
  }
  for (const auto& [p, mark] : c.mislabelled) {
    places.push_back(PlaceAsJson("mislabelled", mark.row, mark.column, p.x, p.y) +
                     fmt::format(", \"labelled_row\": {}, \"labelled_col\": {}}}", p.row, p.col));
  }
  return fmt::format(",\n \"details\": [{}]", fmt::join(places, ","));
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

std::string DetailsAsCsv(const Comparison& c) {
  std::string text = "kind,row,col,x,y,labelled_row,labelled_col\n";
  const auto out = std::back_inserter(text);
  for (const TruthMark& mark : c.missedMarks) {
    fmt::format_to(out, "missed,{},{},{:.9g},{:.9g},,\n", mark.row, mark.column, mark.x, mark.y);
  }
  for (const ListedPoint& p : c.extraPoints) {
    fmt::format_to(out, "extra,{},{},{:.9g},{:.9g},,\n", p.row, p.col, p.x, p.y);
  }
  for (const auto& [p, mark] : c.mislabelled) {
    fmt::format_to(out, "mislabelled,{},{},{:.9g},{:.9g},{},{}\n", mark.row, mark.column, p.x, p.y,
                   p.row, p.col);
  }
  return text;
}

std::string ReportAsJson(const Comparison& c, bool withDetails) {
  return fmt::format(
      "{{\n \"visible_marks\": {},\n \"left_out_marks\": {},\n \"missed\": {},\n \"extra\": {},\n"
      " \"found\": {},\n \"filled_in\": {},\n \"labels\": \"{}\",\n \"wrong_labels\": {},\n"
      " \"row_offset\": {},\n \"column_offset\": {},\n \"complete\": {}{}\n}}\n",
      c.visibleMarks, c.leftOutMarks, c.missed, c.extra, ErrorsAsJson(c.found),
      ErrorsAsJson(c.filledIn), LabelsName(c.labels), c.wrongLabels, c.rowOffset, c.columnOffset,
      c.IsComplete(), withDetails ? DetailsAsJson(c) : "");
}

}  // namespace quorvex::tools
