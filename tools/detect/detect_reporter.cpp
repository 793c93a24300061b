#include "tools/detect/detect_reporter.h"

#include <fmt/format.h>

#include <chrono>
#include <cmath>
#include <utility>

#include "tools/lists/points_file.h"

namespace quorvex::tools {
namespace {

constexpr double kSecondsBetweenLines = 1;

// "1:02:05", "2:05"
std::string DescribeTime(double seconds) {
  const long long whole = std::llround(seconds);
  const long long hours = whole / 3600;
  const long long minutes = whole / 60 % 60;
  return hours > 0 ? fmt::format("{}:{:02}:{:02}", hours, minutes, whole % 60)
                   : fmt::format("{}:{:02}", minutes, whole % 60);
}

}  // namespace

double SecondsOfSteadyClock() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

std::string DescribeProgress(int finished, int imageCount, double seconds) {
  std::string count = fmt::format("{} of {} images", finished, imageCount);
  if (finished == 0 || seconds <= 0) {
    return count;
  }
  const double rate = finished / seconds;
  // Two digits, but never an exponent.
  const std::string rateText =
      rate < 10 ? fmt::format("{:.2g}", rate) : fmt::format("{:.0f}", rate);
  return fmt::format("{}, {} images/s, {} left", count, rateText,
                     DescribeTime((imageCount - finished) / rate));
}

DetectReporter::DetectReporter(std::FILE* stream, int imageCount, ReporterSettings settings)
    : stream_(stream),
      imageCount_(imageCount),
      settings_(std::move(settings)),
      start_(settings_.clock()) {
  Draw();
}

DetectReporter::~DetectReporter() {
  Erase();
  std::fflush(stream_);
}

void DetectReporter::ShowProgress(int finished) {
  finished_ = finished;
  Draw();
  const double seconds = settings_.clock() - start_;
  const bool isDue = finished == imageCount_ || seconds - lastLine_ >= kSecondsBetweenLines;
  if (settings_.progress == ProgressStyle::kLines && isDue) {
    lastLine_ = seconds;
    fmt::print(stream_, "{}\n", DescribeProgress(finished_, imageCount_, seconds));
    std::fflush(stream_);
  }
}

void DetectReporter::Report(const DetectionResult& result) {
  Erase();
  if (settings_.showsNotes) {
    for (const std::string& note : result.notes) {
      fmt::print(stream_, "{}: {}\n", result.found.image, note);
    }
  }
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

void DetectReporter::Draw() {
  const double seconds = settings_.clock() - start_;
  const std::string progress = DescribeProgress(finished_, imageCount_, seconds);
  if (settings_.progress == ProgressStyle::kDrawnOver) {
    // Blanks over what a longer line before left.
    fmt::print(stream_, "\r{:<{}}", progress, drawn_);
    drawn_ = progress.size();
  }
  std::fflush(stream_);
}

void DetectReporter::Erase() const {
  if (settings_.progress == ProgressStyle::kDrawnOver) {
    fmt::print(stream_, "\r{:{}}\r", "", drawn_);
  }
}

}  // namespace quorvex::tools
