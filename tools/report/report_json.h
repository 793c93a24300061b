// What a report's page knows of a run and of its pictures, as JSON that may stand in HTML.
#ifndef QUORVEX_TOOLS_REPORT_REPORT_JSON_H_
#define QUORVEX_TOOLS_REPORT_REPORT_JSON_H_

#include <string>

#include "tools/report/data_uri.h"
#include "tools/report/report_page.h"
#include "tools/report/reported_picture.h"

namespace quorvex::tools {

// Text that is not UTF-8 has its wrong bytes replaced, and every < is written \u003c, so that no
// text ends the element that holds it.
std::string RunJson(const ReportedRun& run, const std::string& version);

// `photo` is what the page holds of the picture; its text is empty when it holds nothing.
std::string PictureJson(const ReportedPicture& picture, const FittedPhoto& photo);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_REPORT_REPORT_JSON_H_
