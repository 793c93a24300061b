#include "tools/detect/output_options.h"

#include <fmt/format.h>

#include <cmath>
#include <cstddef>
#include <set>
#include <vector>

#include "tools/errors.h"
#include "tools/lists/option_text.h"
#include "tools/lists/points_vnl.h"
#include "tools/system/file_name.h"
#include "tools/system/output_file.h"

namespace quorvex::tools {
namespace {

// Tables and runs that are gone on with know an image by its name.
void RequireDifferentImages(const DetectOptions& options, const char* what) {
  std::set<std::string> names;
  for (const std::filesystem::path& image : options.images) {
    const std::string name = Utf8Name(image);
    if (!names.insert(name).second) {
      throw InputError(fmt::format("{} is given twice, but {} takes each image once", name, what));
    }
    if (name.find_first_of("\r\n") != std::string::npos) {
      throw InputError(fmt::format("{} cannot name an image with a line break: {}", what, name));
    }
  }
}

// The size of the board, where the options tell it.
std::optional<GridSize> BoardOf(const DetectOptions& options) {
  if (options.isPrecise && options.preciseOptions.boardRows > 0) {
    return GridSize{options.preciseOptions.boardRows, options.preciseOptions.boardColumns};
  }
  if (options.expected) {
    return options.expected;
  }
  // Rearranging takes columns for rows.
  return options.parameters.rearrange ? std::nullopt : options.parameters.renumber;
}

}  // namespace

OutputFormat FormatOf(const DetectOptions& options) {
  return options.format.value_or(OutputFormatByName(options.output));
}

void CheckOutputOptions(const DetectOptions& options) {
  const OutputFormat format = FormatOf(options);
  if (options.resumes) {
    if (IsStandardOutput(options.output) || format != OutputFormat::kCsv) {
      throw InputError("--resume needs --output with a CSV file");
    }
    if (!options.report.empty()) {
      throw InputError("--report needs all images of a run, and --resume skips some");
    }
    RequireDifferentImages(options, "--resume");
  }
  if (options.pitch && (!std::isfinite(*options.pitch) || *options.pitch <= 0)) {
    throw InputError("--pitch needs a finite number of millimetres above 0");
  }
  if (format == OutputFormat::kOpencv && !options.pitch) {
    throw InputError(
        "the format opencv needs --pitch with the distance from one mark to the next, in mm");
  }
  if (options.pitch && !IsBoardTable(format)) {
    throw InputError("--pitch is for the formats opencv and vnl");
  }
  if (format == OutputFormat::kVnl) {
    RequireDifferentImages(options, "a vnl table");
    for (const std::filesystem::path& image : options.images) {
      RequireVnlName(Utf8Name(image));
    }
  }
}

CsvColumns ColumnsOf(const DetectOptions& options, bool withImage) {
  return {withImage, true, options.isPrecise};
}

OutputSettings OutputSettingsOf(const DetectOptions& options) {
  OutputSettings settings;
  settings.path = options.output;
  settings.format = FormatOf(options);
  settings.columns = ColumnsOf(options, options.images.size() > 1);
  settings.board = BoardOf(options);
  settings.pitch = options.pitch.value_or(0);
  return settings;
}

std::string DescribeOptions(const DetectOptions& options) {
  std::vector<std::string> words;
  if (options.isPrecise) {
    words.emplace_back("--precise");
    const precise::Options& precise = options.preciseOptions;
    if (precise.predictsMissing) {
      words.emplace_back("--predict");
    }
    if (precise.hasContinuousLines) {
      words.emplace_back("--continuous-lines");
    }
    if (precise.boardRows > 0) {
      words.push_back(
          fmt::format("--rows {} --columns {}", precise.boardRows, precise.boardColumns));
    }
    if (options.parameters.levels) {
      words.push_back("--levels " + GreyLevelsText(*options.parameters.levels));
    }
  } else {
    // Without the subcommand in front and the two paths behind the dashes.
    const std::vector<std::string> all = WorkerArguments({}, {}, options.parameters);
    words.assign(all.begin() + 1, all.end() - 3);
  }
  if (options.expected) {
    words.push_back("--expect " + GridSizeText(*options.expected));
  }
  return fmt::format("{}", fmt::join(words, " "));
}

}  // namespace quorvex::tools
