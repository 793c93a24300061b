#include "tools/detect/detect_run.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "tools/detect/detect_images.h"
#include "tools/detect/detect_outputs.h"
#include "tools/detect/detect_report.h"
#include "tools/detect/detect_reporter.h"
#include "tools/detect/output_options.h"
#include "tools/detect/overlay.h"
#include "tools/detect/points_output.h"
#include "tools/detect/precise_images.h"
#include "tools/detect/resumed_table.h"
#include "tools/errors.h"
#include "tools/lists/option_text.h"
#include "tools/pictures/picture_file.h"
#include "tools/report/report_page.h"
#include "tools/system/file_name.h"
#include "tools/system/output_file.h"
#include "tools/system/worker_process.h"

namespace quorvex::tools {
namespace {

namespace fs = std::filesystem;

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

// What is to be done, and where it goes.
struct ImageTask {
  DetectionJob job;
  fs::path overlay;  // empty for none
};

std::vector<ImageTask> TasksOf(const DetectOptions& options, const ImageOutputs& outputs,
                               const ResumedTable* resumed) {
  std::vector<ImageTask> tasks;
  for (std::size_t i = 0; i < options.images.size(); ++i) {
    if (resumed != nullptr && resumed->Holds(Utf8Name(options.images[i]))) {
      continue;
    }
    ImageTask task;
    task.job.image = options.images[i];
    if (!outputs.diagnosticsFolders.empty()) {
      task.job.diagnosticsFolder = outputs.diagnosticsFolders[i];
    }
    if (!outputs.overlays.empty()) {
      task.overlay = outputs.overlays[i];
    }
    tasks.push_back(std::move(task));
  }
  return tasks;
}

// In a list the image's name stands beside the reason, not in it.
std::string ReasonWithoutName(const DetectionResult& result) {
  const std::string start = result.found.image + ": ";
  const bool hasName = result.message.compare(0, start.size(), start) == 0;
  return hasName ? result.message.substr(start.size()) : result.message;
}

// Takes one result after the other, in the order of the tasks.
class ResultKeeper {
 public:
  // `report` may be null.
  ResultKeeper(const DetectOptions& options, const std::vector<ImageTask>& tasks,
               PointsOutput& output, ReportPage* report)
      : options_(options), tasks_(tasks), output_(output), report_(report) {}

  void Keep(DetectionResult& result) {
    const ImageTask& task = tasks_[next_++];
    exitCode_ = std::max(exitCode_, result.exitCode);
    if (options_.isStrict && !result.warning.empty()) {
      exitCode_ = std::max(exitCode_, kExitNothingFound);
    }
    if (result.exitCode == kExitSuccess) {
      hasSuccess_ = true;
      if (!task.overlay.empty()) {
        const Picture picture = ReadPictureFile(task.job.image, options_.parameters.levels);
        WriteColorPng(DrawOverlay(picture, result.found.points), task.overlay);
      }
    } else {
      result.found.error = ReasonWithoutName(result);
    }
    output_.Add(result.found);
    if (report_ != nullptr) {
      report_->Add(
          ReportedPictureOf(result, options_.isPrecise, ReadWherePossible(task.job.image)));
    }
  }

  int ExitCode() const { return exitCode_; }
  bool HasSuccess() const { return hasSuccess_; }

 private:
  std::optional<Picture> ReadWherePossible(const fs::path& image) const {
    try {
      return ReadPictureFile(image, options_.parameters.levels);
    } catch (const InputError&) {
      return std::nullopt;  // its failure was told
    }
  }

  const DetectOptions& options_;
  const std::vector<ImageTask>& tasks_;
  PointsOutput& output_;
  ReportPage* report_;
  std::size_t next_ = 0;
  int exitCode_ = kExitSuccess;
  bool hasSuccess_ = false;
};

ReporterSettings ReporterSettingsOf(const DetectOptions& options, std::size_t count) {
  ReporterSettings settings;
  const bool isTerminal = StandardErrorIsTerminal();
  if (count > 1 && (options.showsProgress || (!options.isQuiet && isTerminal))) {
    settings.progress = isTerminal ? ProgressStyle::kDrawnOver : ProgressStyle::kLines;
  }
  // The text format ends with the same summary.
  settings.showsSummaries = !options.isQuiet && (FormatOf(options) != OutputFormat::kText ||
                                                 !IsStandardOutput(options.output));
  settings.showsNotes = !options.isQuiet;
  return settings;
}

// Both detections.
void DetectAll(const DetectOptions& options, const std::vector<ImageTask>& tasks,
               ResultKeeper& keeper) {
  std::vector<DetectionJob> jobs;
  jobs.reserve(tasks.size());
  for (const ImageTask& task : tasks) {
    jobs.push_back(task.job);
  }
  DetectReporter reporter(stderr, static_cast<int>(jobs.size()),
                          ReporterSettingsOf(options, jobs.size()));
  const DetectionObserver observer{[&](int finished) { reporter.ShowProgress(finished); },
                                   [&](DetectionResult& result) {
                                     RequireGrid(options.expected, result);
                                     reporter.Report(result);
                                     keeper.Keep(result);
                                   }};
  if (options.isPrecise) {
    DetectImagesPrecisely(jobs, options.preciseOptions, options.parameters.levels, options.parallel,
                          observer);
  } else {
    DetectParameters parameters = options.parameters;
    if (!options.report.empty()) {
      parameters.stageCharacters = static_cast<int>(CharactersOfStage(jobs.size()));
    }
    DetectImages(jobs, parameters, options.parallel, observer);
  }
}

void ReportOutput(const OutputReport& report, bool isQuiet) {
  for (const std::string& fault : report.faults) {
    fmt::print(stderr, "quorvex: {}\n", fault);
  }
  if (isQuiet) {
    return;
  }
  for (const std::string& note : report.notes) {
    fmt::print(stderr, "{}\n", note);
  }
}

// Goes on with a table: what it holds is not detected again, and each image is in it once done.
int RunResumed(const DetectOptions& options, const ImageOutputs& outputs) {
  ResumedTable table(options.output, ColumnsOf(options, true), DescribeOptions(options));
  const std::vector<ImageTask> tasks = TasksOf(options, outputs, &table);
  if (!options.isQuiet && tasks.size() < options.images.size()) {
    fmt::print(stderr, "{} of {} images are in {} already\n", options.images.size() - tasks.size(),
               options.images.size(), Utf8Name(options.output));
  }
  const int exitCode = table.HoldsFailure() ? kExitNothingFound : kExitSuccess;
  ResultKeeper keeper(options, tasks, table, nullptr);
  DetectAll(options, tasks, keeper);
  table.Finish();
  return std::max(exitCode, keeper.ExitCode());
}

}  // namespace

int RunDetect(const DetectOptions& options) {
  CheckOutputOptions(options);
  const ImageOutputs outputs = PrepareOutputs(options);
  if (options.resumes) {
    return RunResumed(options, outputs);
  }
  const std::unique_ptr<PointsOutput> output = MakePointsOutput(OutputSettingsOf(options));
  const std::vector<ImageTask> tasks = TasksOf(options, outputs, nullptr);
  std::optional<ReportPage> page;
  if (!outputs.report.empty()) {
    page.emplace(outputs.report, ReportedRunOf(options), tasks.size());
  }
  ResultKeeper keeper(options, tasks, *output, page ? &*page : nullptr);
  DetectAll(options, tasks, keeper);
  if (page) {
    page->Commit();
  }
  if (!keeper.HasSuccess()) {
    return keeper.ExitCode();
  }
  const OutputReport report = output->Finish();
  if (!IsStandardOutput(options.output) && !IsBoardTable(FormatOf(options))) {
    ForgetStoppedRun(options.output);
  }
  ReportOutput(report, options.isQuiet);
  return report.faults.empty() ? keeper.ExitCode() : std::max(keeper.ExitCode(), kExitNothingFound);
}

}  // namespace quorvex::tools
