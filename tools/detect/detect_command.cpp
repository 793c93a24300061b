#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "tools/detect/detect_images.h"
#include "tools/detect/detect_worker.h"
#include "tools/detect/diagnostics_folder.h"
#include "tools/detect/list_folder.h"
#include "tools/detect/overlay.h"
#include "tools/errors.h"
#include "tools/lists/option_text.h"
#include "tools/lists/points_file.h"
#include "tools/pictures/picture_file.h"
#include "tools/subcommands.h"
#include "tools/system/file_name.h"
#include "tools/system/output_file.h"
#include "tools/system/path_option.h"
#include "tools/system/worker_process.h"

namespace quorvex::tools {
namespace {

constexpr int kLargestSpan = 1000;       // rows or columns
constexpr int kLargestRowSteps = 32768;  // pixels; the widest picture that is read
constexpr int kMostWorkers = 64;

struct DetectOptions {
  std::vector<std::filesystem::path> images;
  DetectParameters parameters;
  PointsFormat format = PointsFormat::kCsv;
  std::filesystem::path output;       // empty for standard output
  std::filesystem::path overlay;      // empty for none
  std::filesystem::path diagnostics;  // empty for none
  bool quiet = false;
  int parallel = 1;
};

struct WorkerOptions {
  std::filesystem::path image;
  std::filesystem::path directory;
  DetectParameters parameters;
};

void RequirePngEnding(const std::filesystem::path& path) {
  if (path.extension() != ".png") {
    throw InputError(fmt::format("{} must end in .png", Utf8Name(path)));
  }
}

void RequireNotAnImage(const std::filesystem::path& path,
                       const std::vector<std::filesystem::path>& images) {
  for (const std::filesystem::path& image : images) {
    std::error_code ignored;
    if (std::filesystem::equivalent(path, image, ignored)) {
      throw InputError(
          fmt::format("{} is one of the images and would be overwritten", Utf8Name(path)));
    }
  }
}

// Everything that can be refused before the first detection.
void CheckOutputs(const DetectOptions& options, const std::vector<std::filesystem::path>& folders) {
  if (!options.overlay.empty()) {
    if (options.images.size() > 1) {
      throw InputError("--overlay draws one image only; run the images one by one");
    }
    if (options.overlay == options.output) {
      throw InputError("--overlay and --output name the same file");
    }
    RequirePngEnding(options.overlay);
    RequireNotAnImage(options.overlay, options.images);
    RequireWritable(options.overlay);
  }
  if (!options.output.empty()) {
    RequireNotAnImage(options.output, options.images);
    RequireWritable(options.output);
  }
  for (const std::filesystem::path& folder : folders) PrepareDiagnosticsFolder(folder);
}

// What people see on standard error while images are worked on.
class Reporter {
 public:
  // `summaries`: also say what was found, not only what failed.
  Reporter(int imageCount, bool quiet, bool summaries)
      : imageCount_(imageCount),
        showProgress_(!quiet && imageCount > 1 && StandardErrorIsTerminal()),
        summaries_(!quiet && summaries) {}

  void ShowProgress(int finished) {
    if (!showProgress_) return;
    const bool last = finished == imageCount_;
    fmt::print(stderr, "\r{:30}\r",
               last ? "" : fmt::format("{} of {} images", finished, imageCount_));
    std::fflush(stderr);
  }

  void Report(const DetectionResult& result) {
    const bool failed = result.exitCode != kExitSuccess;
    if (!failed && !summaries_) return;
    if (showProgress_) fmt::print(stderr, "\r{:30}\r", "");
    if (failed) {
      fmt::print(stderr, "quorvex: {}\n", result.message);
    } else {
      fmt::print(stderr, "{}\n", DescribePoints(result.found));
    }
  }

 private:
  int imageCount_;
  bool showProgress_;
  bool summaries_;
};

void WriteOverlay(const DetectOptions& options, const DetectionResult& result) {
  if (options.overlay.empty()) return;
  const Picture picture = ReadPictureFile(options.images.front());
  WriteColorPng(DrawOverlay(picture, result.found.points), options.overlay);
}

int RunDetect(const DetectOptions& options) {
  std::vector<std::filesystem::path> folders(options.images.size());
  if (!options.diagnostics.empty()) {
    folders = DiagnosticsFolders(options.diagnostics, options.images);
  }
  CheckOutputs(options,
               options.diagnostics.empty() ? std::vector<std::filesystem::path>{} : folders);

  std::vector<DetectionJob> jobs;
  for (std::size_t i = 0; i < options.images.size(); ++i) {
    jobs.push_back({options.images[i], folders[i]});
  }
  // The text format ends with the same summary.
  const bool summaries = options.format != PointsFormat::kText || !options.output.empty();
  Reporter reporter(static_cast<int>(jobs.size()), options.quiet, summaries);
  const std::vector<DetectionResult> results =
      DetectImages(jobs, options.parameters, options.parallel,
                   {[&](int finished) { reporter.ShowProgress(finished); },
                    [&](const DetectionResult& result) { reporter.Report(result); }});

  int exitCode = kExitSuccess;
  std::vector<PointsOfImage> found;
  for (const DetectionResult& result : results) {
    exitCode = std::max(exitCode, result.exitCode);
    if (result.exitCode == kExitSuccess) found.push_back(result.found);
  }
  if (found.empty()) return exitCode;
  WriteOverlay(options, results.front());
  const std::string text = FormatPoints(found, options.format, jobs.size() > 1);
  if (options.output.empty()) {
    WriteToStandardOutput(text);
  } else {
    WriteTextFileWhole(options.output, text);
  }
  return exitCode;
}

int RunWorker(const WorkerOptions& options) {
  const DetectionResult result =
      DetectInDirectory(options.image, options.directory, options.parameters);
  WriteDetectionResult(result, options.directory / kResultFile);
  return kExitSuccess;
}

void AddParameters(CLI::App& command, DetectParameters& parameters) {
  command
      .add_option("--row-span", parameters.rowSpan,
                  "rows looked for beyond the centre row, 0 to 1000")
      ->check(CLI::Range(0, kLargestSpan))
      ->option_text("N=20");
  command
      .add_option("--column-span", parameters.columnSpan,
                  "columns looked for beyond the centre column, 0 to 1000")
      ->check(CLI::Range(0, kLargestSpan))
      ->option_text("N=20");
  command
      .add_option("--row-steps", parameters.rowSteps,
                  "how far a row may run from one mark to the next [pixels]; at least the widest "
                  "spacing + 10, and above 121")
      ->check(CLI::Range(1, kLargestRowSteps))
      ->option_text("N=300");
  command.add_flag("--pad", parameters.pad,
                   "grow images whose size is not a multiple of 4 pixels, at the right and at the "
                   "bottom; positions stay those of the image");
  command
      .add_option_function<std::string>(
          "--renumber",
          [&parameters](const std::string& text) { parameters.renumber = ParseGridSize(text); },
          "number the points by their geometry, as 'points renumber' does; an image without a "
          "complete grid of this size counts as failed")
      ->option_text("ROWSxCOLUMNS");
  command
      .add_option_function<CameraSide>(
          "--rearrange", [&parameters](const CameraSide& side) { parameters.rearrange = side; },
          "then number them for the left or the right camera, as 'points rearrange' does with the "
          "number of columns found; points without a column are dropped")
      ->transform(CLI::CheckedTransformer(kCameraSides).description(""))
      ->option_text("left|right");
}

void AddOutputOptions(CLI::App& command, DetectOptions& options) {
  const std::map<std::string, PointsFormat> formats{
      {"csv", PointsFormat::kCsv}, {"json", PointsFormat::kJson}, {"text", PointsFormat::kText}};
  command.add_option("--format", options.format, "csv, json or text")
      ->transform(CLI::CheckedTransformer(formats, CLI::ignore_case))
      ->option_text("NAME=csv");
  AddPathOption(command, "-o,--output", options.output,
                "file for the points, instead of standard output")
      ->option_text("FILE");
  AddPathOption(command, "--overlay", options.overlay,
                "picture of the image with its points drawn over it (one image only)")
      ->option_text("FILE.png");
  std::string diagnosticsHelp =
      "keep the pictures of the detection's stages in DIR; with several images in a folder per "
      "image";
  if (IsListFolderShared()) {
    diagnosticsHelp += ", and one after the other, since all write their lists to drive D:";
  }
  AddPathOption(command, "--diagnostics", options.diagnostics, diagnosticsHelp)->option_text("DIR");
  command.add_flag("-q,--quiet", options.quiet, "say nothing on standard error but failures");
  command
      .add_option("-j,--jobs", options.parallel, "how many images are worked on at once, 1 to 64")
      ->check(CLI::Range(1, kMostWorkers))
      ->option_text("N=1");
}

void AddWorkerCommand(CLI::App& app, Action& action) {
  const auto options = std::make_shared<WorkerOptions>();
  CLI::App* command = app.add_subcommand(kWorkerCommand, "");
  command->group("");  // not for people: hidden from the help
  AddPathOption(*command, "image", options->image, "")->required();
  AddPathOption(*command, "directory", options->directory, "")->required();
  AddParameters(*command, options->parameters);
  command->callback([options, &action] { action = [options] { return RunWorker(*options); }; });
}

}  // namespace

void AddDetectCommand(CLI::App& app, Action& action) {
  const auto options = std::make_shared<DetectOptions>();
  CLI::App* command = app.add_subcommand("detect", "Find the calibration points in images");
  AddPathsOption(*command, "images", options->images, "BMP or PNG files")
      ->required()
      ->option_text("IMAGE...");
  AddParameters(*command, options->parameters);
  AddOutputOptions(*command, *options);
  command->footer(
      "Positions are pixels, x to the right and y down, integer at pixel centres. The points of\n"
      "the images that succeeded are written also when others fail; when none succeeds, nothing "
      "is.\n"
      "Exit code 0: points were found in every image; 1: an image was read but nothing was found\n"
      "in it, or its points cannot be numbered as wanted; 2: bad usage or input.\n\n"
      "Examples:\n"
      "  quorvex detect target.bmp --output points.csv --overlay points.png\n"
      "  quorvex detect left.bmp right.bmp --format json -j 2\n"
      "  quorvex detect photo.png --pad --row-steps 400 --diagnostics stages\n"
      "  quorvex detect left.bmp --renumber 9x9 --rearrange left");
  command->callback([options, &action] {
    action = [options] {
      try {
        return RunDetect(*options);
      } catch (const Interrupted& stop) {
        return stop.exitCode;
      }
    };
  });
  AddWorkerCommand(app, action);
}

}  // namespace quorvex::tools
