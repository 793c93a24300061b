// What 'quorvex detect' can write.
#ifndef QUORVEX_TOOLS_DETECT_OUTPUT_FORMAT_H_
#define QUORVEX_TOOLS_DETECT_OUTPUT_FORMAT_H_

#include <filesystem>

#include "tools/system/choice_option.h"
#include "tools/system/file_name.h"

namespace quorvex::tools {

enum class OutputFormat {
  kCsv,  // lists of points, image by image
  kJson,
  kText,
  kVnl,  // tables of one board for programs for calibration
  kOpencv,
};

// Their names in options.
constexpr Choice<OutputFormat> kOutputFormats[] = {{"csv", OutputFormat::kCsv},
                                                   {"json", OutputFormat::kJson},
                                                   {"text", OutputFormat::kText},
                                                   {"vnl", OutputFormat::kVnl},
                                                   {"opencv", OutputFormat::kOpencv}};

// By the ending of a file's name, CSV for any other name.
inline OutputFormat OutputFormatByName(const std::filesystem::path& path) {
  const std::string ending = SmallEnding(path);
  if (ending == ".json") {
    return OutputFormat::kJson;
  }
  if (ending == ".txt") {
    return OutputFormat::kText;
  }
  if (ending == ".vnl") {
    return OutputFormat::kVnl;
  }
  return ending == ".yml" || ending == ".yaml" ? OutputFormat::kOpencv : OutputFormat::kCsv;
}

inline bool IsBoardTable(OutputFormat format) {
  return format == OutputFormat::kVnl || format == OutputFormat::kOpencv;
}

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_OUTPUT_FORMAT_H_
