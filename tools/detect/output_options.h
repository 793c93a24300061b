// What the options of 'quorvex detect' say about its output.
#ifndef QUORVEX_TOOLS_DETECT_OUTPUT_OPTIONS_H_
#define QUORVEX_TOOLS_DETECT_OUTPUT_OPTIONS_H_

#include <string>

#include "tools/detect/detect_run.h"
#include "tools/detect/points_output.h"

namespace quorvex::tools {

OutputFormat FormatOf(const DetectOptions& options);

// Throws InputError (tools/errors.h) for options that do not go together, and for images whose
// names the output cannot hold.
void CheckOutputOptions(const DetectOptions& options);

CsvColumns ColumnsOf(const DetectOptions& options, bool withImage);

OutputSettings OutputSettingsOf(const DetectOptions& options);

// One line on everything that changes what is found, and nothing else.
std::string DescribeOptions(const DetectOptions& options);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_OUTPUT_OPTIONS_H_
