#include "tools/detect/detect_reporter.h"

#include <fmt/format.h>

#include "tools/lists/points_file.h"

namespace quorvex::tools {
namespace {

constexpr int kWidest = 30;  // characters; of the progress line

}  // namespace

DetectReporter::DetectReporter(std::FILE* stream, int imageCount, ReporterSettings settings)
    : stream_(stream), imageCount_(imageCount), settings_(settings) {
  Draw();
}

DetectReporter::~DetectReporter() {
  Erase();
  std::fflush(stream_);
}

void DetectReporter::ShowProgress(int finished) {
  finished_ = finished;
  Draw();
}

void DetectReporter::Report(const DetectionResult& result) {
  Erase();
  if (result.exitCode != kExitSuccess) {
    fmt::print(stream_, "quorvex: {}\n", result.message);
  } else if (settings_.showsSummaries) {
    fmt::print(stream_, "{}\n", DescribePoints(result.found));
  }
  if (!result.warning.empty()) {
    fmt::print(stream_, "quorvex: {}: {}\n", result.found.image, result.warning);
  }
  Draw();
}

void DetectReporter::Draw() const {
  if (settings_.showsProgress) {
    fmt::print(stream_, "\r{} of {} images", finished_, imageCount_);
  }
  std::fflush(stream_);
}

void DetectReporter::Erase() const {
  if (settings_.showsProgress) {
    fmt::print(stream_, "\r{:{}}\r", "", kWidest);
  }
}

}  // namespace quorvex::tools
