// The outcome of a comparison as text.
#ifndef QUORVEX_TOOLS_COMPARE_COMPARE_REPORT_H_
#define QUORVEX_TOOLS_COMPARE_COMPARE_REPORT_H_

#include <string>

#include "tools/compare/compare_points.h"

namespace quorvex::tools {

std::string ReportAsText(const Comparison& comparison);  // a few lines for people
std::string ReportAsJson(const Comparison& comparison);  // one object; distances in pixels

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_COMPARE_COMPARE_REPORT_H_
