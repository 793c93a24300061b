// What `quorvex target --check` says of a set-up.
#ifndef QUORVEX_TOOLS_TARGET_SETUP_REPORT_H_
#define QUORVEX_TOOLS_TARGET_SETUP_REPORT_H_

#include <string>

#include "tools/render/render_settings.h"
#include "tools/target/setup_measures.h"

namespace quorvex::tools {

struct SetupReport {
  std::string text;      // the measures, then a verdict on each of the two detections
  bool isFound = false;  // by one of them
};

// Throws InputError (tools/errors.h) as MeasureSetup does.
SetupReport ReportSetup(const RenderSettings& settings, const BoardMargins& margins);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_TARGET_SETUP_REPORT_H_
