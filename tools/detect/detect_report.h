// The report of a run: what each detection came to, as its page shows it.
#ifndef QUORVEX_TOOLS_DETECT_DETECT_REPORT_H_
#define QUORVEX_TOOLS_DETECT_DETECT_REPORT_H_

#include <optional>

#include "tools/detect/detect_run.h"
#include "tools/detect/detection_result.h"
#include "tools/pictures/picture.h"
#include "tools/report/report_page.h"
#include "tools/report/reported_picture.h"

namespace quorvex::tools {

ReportedRun ReportedRunOf(const DetectOptions& options);

// `picture` is nothing where it cannot be read.
ReportedPicture ReportedPictureOf(const DetectionResult& result, bool isDirect,
                                  std::optional<Picture> picture);

// A sentence "reason; advice" of a failed detection in its parts, with the stage that its
// diagnostic picture, or the direct detection's word for it, tells.
ReportedFailure FailureOf(const DetectionResult& result);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_DETECT_REPORT_H_
