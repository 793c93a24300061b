// The page's own text, which CMake puts together from the files of viewer/ (CMakeLists.txt).
#ifndef QUORVEX_TOOLS_REPORT_VIEWER_TEXT_H_
#define QUORVEX_TOOLS_REPORT_VIEWER_TEXT_H_

namespace quorvex::tools {

extern const char* const kViewerStart;  // up to the data
extern const char* const kViewerEnd;    // behind it
extern const char* const kViewerVersion;

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_REPORT_VIEWER_TEXT_H_
