#include "tools/detect/detect_run.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <system_error>

#include "tools/detect/detect_images.h"
#include "tools/detect/detect_reporter.h"
#include "tools/detect/diagnostics_folder.h"
#include "tools/detect/overlay.h"
#include "tools/detect/overlay_files.h"
#include "tools/detect/precise_images.h"
#include "tools/errors.h"
#include "tools/lists/option_text.h"
#include "tools/pictures/picture_file.h"
#include "tools/system/file_name.h"
#include "tools/system/output_file.h"
#include "tools/system/worker_process.h"

namespace quorvex::tools {
namespace {

namespace fs = std::filesystem;

void RequireNotAnImage(const fs::path& path, const std::vector<fs::path>& images) {
  for (const fs::path& image : images) {
    std::error_code ignored;
    if (fs::equivalent(path, image, ignored)) {
      throw InputError(
          fmt::format("{} is one of the images and would be overwritten", Utf8Name(path)));
    }
  }
}

PointsFormat FormatOf(const DetectOptions& options) {
  return options.format.value_or(FormatByName(options.output, PointsFormat::kCsv));
}

// The files and folders of each image; empty where nothing is to be kept.
struct ImageOutputs {
  std::vector<fs::path> overlays;
  std::vector<fs::path> diagnosticsFolders;
};

// Makes folders, and refuses all that can be refused before the first detection.
ImageOutputs PrepareOutputs(const DetectOptions& options) {
  ImageOutputs outputs;
  if (!options.overlay.empty()) {
    outputs.overlays = OverlayFiles(options.overlay, options.images);
    for (const fs::path& overlay : outputs.overlays) {
      if (overlay == options.output) {
        throw InputError("--overlay and --output name the same file");
      }
      RequireNotAnImage(overlay, options.images);
    }
    PrepareOverlayFiles(options.overlay, outputs.overlays);
  }
  if (!IsStandardOutput(options.output)) {
    RequireNotAnImage(options.output, options.images);
    RequireWritable(options.output);
  }
  if (!options.diagnostics.empty()) {
    outputs.diagnosticsFolders = DiagnosticsFolders(options.diagnostics, options.images);
    for (const fs::path& folder : outputs.diagnosticsFolders) {
      PrepareDiagnosticsFolder(folder);
    }
  }
  return outputs;
}

// Warns where the rows and columns found are not those that were expected.
void RequireGrid(const std::optional<GridSize>& expected, DetectionResult& result) {
  if (!expected || result.exitCode != kExitSuccess) {
    return;
  }
  GridSize found;
  for (const ListedPoint& p : result.found.points) {
    found.rows = std::max(found.rows, p.row + 1);
    found.columns = std::max(found.columns, p.col + 1);
  }
  if (found.rows != expected->rows || found.columns != expected->columns) {
    result.exitCode = kExitNothingFound;
    result.message = fmt::format("{}: a grid of {} was found, not of {}", result.found.image,
                                 GridSizeText(found), GridSizeText(*expected));
    result.found.points.clear();
  }
}

// Both detections.
std::vector<DetectionResult> Detect(const DetectOptions& options, const ImageOutputs& outputs,
                                    const DetectionObserver& observer) {
  if (options.isPrecise) {
    return DetectImagesPrecisely(options.images, options.preciseOptions, options.parallel,
                                 observer);
  }
  std::vector<DetectionJob> jobs;
  for (std::size_t i = 0; i < options.images.size(); ++i) {
    const bool keeps = !outputs.diagnosticsFolders.empty();
    jobs.push_back({options.images[i], keeps ? outputs.diagnosticsFolders[i] : fs::path()});
  }
  return DetectImages(jobs, options.parameters, options.parallel, observer);
}

std::vector<DetectionResult> DetectAll(const DetectOptions& options, const ImageOutputs& outputs) {
  const int count = static_cast<int>(options.images.size());
  ReporterSettings settings;
  settings.showsProgress = !options.isQuiet && count > 1 && StandardErrorIsTerminal();
  // The text format ends with the same summary.
  settings.showsSummaries = !options.isQuiet && (FormatOf(options) != PointsFormat::kText ||
                                                 !IsStandardOutput(options.output));
  DetectReporter reporter(stderr, count, settings);
  return Detect(options, outputs,
                {[&](int finished) { reporter.ShowProgress(finished); },
                 [&](DetectionResult& result) {
                   RequireGrid(options.expected, result);
                   reporter.Report(result);
                 }});
}

void WriteOverlays(const std::vector<fs::path>& overlays, const std::vector<fs::path>& images,
                   const std::vector<DetectionResult>& results) {
  for (std::size_t i = 0; i < overlays.size(); ++i) {
    if (results[i].exitCode != kExitSuccess) {
      continue;
    }
    WriteColorPng(DrawOverlay(ReadPictureFile(images[i]), results[i].found.points), overlays[i]);
  }
}

// In a list the image's name stands beside the reason, not in it.
std::string ReasonWithoutName(const DetectionResult& result) {
  const std::string start = result.found.image + ": ";
  const bool hasName = result.message.compare(0, start.size(), start) == 0;
  return hasName ? result.message.substr(start.size()) : result.message;
}

}  // namespace

int RunDetect(const DetectOptions& options) {
  const ImageOutputs outputs = PrepareOutputs(options);
  const std::vector<DetectionResult> results = DetectAll(options, outputs);

  int exitCode = kExitSuccess;
  bool hasSuccess = false;
  std::vector<PointsOfImage> lists;
  for (const DetectionResult& result : results) {
    exitCode = std::max(exitCode, result.exitCode);
    if (options.isStrict && !result.warning.empty()) {
      exitCode = std::max(exitCode, kExitNothingFound);
    }
    hasSuccess = hasSuccess || result.exitCode == kExitSuccess;
    lists.push_back(result.found);
    if (result.exitCode != kExitSuccess) {
      lists.back().error = ReasonWithoutName(result);
    }
  }
  if (!hasSuccess) {
    return exitCode;
  }
  WriteOverlays(outputs.overlays, options.images, results);
  WriteText(options.output, FormatPoints(lists, FormatOf(options), lists.size() > 1));
  return exitCode;
}

}  // namespace quorvex::tools
