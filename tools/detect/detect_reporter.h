// What people see on standard error while images are worked on.
#ifndef QUORVEX_TOOLS_DETECT_DETECT_REPORTER_H_
#define QUORVEX_TOOLS_DETECT_DETECT_REPORTER_H_

#include <cstdio>

#include "tools/detect/detection_result.h"

namespace quorvex::tools {

struct ReporterSettings {
  bool showsProgress = false;   // a line "3 of 8 images", which is drawn over; for terminals
  bool showsSummaries = false;  // also what was found, and not only what failed
};

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
  void Draw() const;
  void Erase() const;

  std::FILE* stream_;
  int imageCount_;
  ReporterSettings settings_;
  int finished_ = 0;
};

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_DETECT_REPORTER_H_
