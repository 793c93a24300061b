// What a worker found in one image, and its way from the worker to the command: a JSON file.
#ifndef QUORVEX_TOOLS_DETECT_DETECTION_RESULT_H_
#define QUORVEX_TOOLS_DETECT_DETECTION_RESULT_H_

#include <filesystem>
#include <string>
#include <vector>

#include "interface/quorvex_precise.h"
#include "tools/errors.h"
#include "tools/lists/disagreement.h"
#include "tools/lists/points_file.h"
#include "tools/report/reported_picture.h"

namespace quorvex::tools {

// What the direct detection found, as the detection itself or as the check of the other one.
struct DirectFindings {
  std::vector<precise::Mark> marks;  // empty when it found none or did not run
  precise::PictureFacts facts;
};

struct DetectionResult {
  int exitCode = kExitSuccess;          // of this image alone (tools/errors.h)
  std::string message;                  // one sentence; empty on success
  PointsOfImage found;                  // without points unless successful
  std::string warning = {};             // one sentence on points that are not as they should be
  std::vector<std::string> notes = {};  // how the picture was taken, a sentence each
  std::string stage = {};               // where the direct detection ended without marks
  DirectFindings direct = {};
  std::vector<Disagreement> disagreements = {};   // of the points with the direct detection
  std::vector<ReportedImage> stagePictures = {};  // where a report is wanted
};

// Both are for a file of the command's own: throws std::runtime_error when it cannot be written, or
// is missing or damaged because the worker ended early.
void WriteDetectionResult(const DetectionResult& result, const std::filesystem::path& path);
DetectionResult ReadDetectionResult(const std::filesystem::path& path);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_DETECTION_RESULT_H_
