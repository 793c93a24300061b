// The outcome of a comparison as text.
#ifndef QUORVEX_TOOLS_COMPARE_COMPARE_REPORT_H_
#define QUORVEX_TOOLS_COMPARE_COMPARE_REPORT_H_

#include <string>

#include "tools/compare/compare_points.h"

namespace quorvex::tools {

std::string ReportAsText(const Comparison& comparison);  // a few lines for people
// One object; distances in pixels. With details it holds what DetailsAsCsv lists, too, in a list
// "details" with one object a row.
std::string ReportAsJson(const Comparison& comparison, bool withDetails);

// The marks that were missed, the extra points, and the points with another row or column than
// their mark, as CSV: kind (missed, extra or mislabelled), row, col, x, y, labelled_row,
// labelled_col. Row and column are the mark's, or for an extra point its own; the position is the
// point's, or for a missed mark the mark's. The last two columns are a mislabelled point's own row
// and column, else empty.
std::string DetailsAsCsv(const Comparison& comparison);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_COMPARE_COMPARE_REPORT_H_
