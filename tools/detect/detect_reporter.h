// What people see on standard error while images are worked on.
#ifndef QUORVEX_TOOLS_DETECT_DETECT_REPORTER_H_
#define QUORVEX_TOOLS_DETECT_DETECT_REPORTER_H_

#include <cstddef>
#include <cstdio>
#include <functional>
#include <string>

#include "tools/detect/detection_result.h"

namespace quorvex::tools {

double SecondsOfSteadyClock();

enum class ProgressStyle {
  kNone,
  kDrawnOver,  // one line that changes; for terminals
  kLines,      // a line about every second
};

struct ReporterSettings {
  ProgressStyle progress = ProgressStyle::kNone;
  bool showsSummaries = false;  // also what was found, and not only what failed
  bool showsNotes = false;      // how a picture was taken
  // Seconds since any moment; for tests.
  std::function<double()> clock = SecondsOfSteadyClock;
};

// "3 of 8 images, 2.5 images/s, 0:02 left"; without rate and time before the first one.
std::string DescribeProgress(int finished, int imageCount, double seconds);

class DetectReporter {
 public:
  // `stream` outlives the reporter. The progress line shows from here on, when there is one.
  DetectReporter(std::FILE* stream, int imageCount, ReporterSettings settings);
  ~DetectReporter();  // takes the progress line away
  DetectReporter(const DetectReporter&) = delete;
  DetectReporter& operator=(const DetectReporter&) = delete;

  void ShowProgress(int finished);

  // A line for one image; the progress line moves down below it.
  void Report(const DetectionResult& result);

 private:
  void Draw();
  void Erase() const;

  std::FILE* stream_;
  int imageCount_;
  ReporterSettings settings_;
  double start_;         // by the clock
  double lastLine_ = 0;  // seconds after the start
  int finished_ = 0;
  std::size_t drawn_ = 0;  // characters of the line that stands there
};

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_DETECT_REPORTER_H_
