// The detection of one image inside a worker process: the detection leaves its pictures under fixed
// names in the current directory, and what goes wrong in it must not take other images along.
#ifndef QUORVEX_TOOLS_DETECT_DETECT_WORKER_H_
#define QUORVEX_TOOLS_DETECT_DETECT_WORKER_H_

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "tools/detect/detection_result.h"
#include "tools/lists/point_edits.h"
#include "tools/lists/points_file.h"
#include "tools/pictures/grey_levels.h"

namespace quorvex::tools {

struct DetectParameters {
  int rowSpan = 20;                  // rows looked for beyond the centre row
  int columnSpan = 20;               // columns looked for beyond the centre column
  int rowSteps = 300;                // pixels a row may run from one mark to the next
  bool pad = true;                   // grow pictures whose size is not a multiple of 4
  bool check = true;                 // compare the points with what the direct detection finds
  int stageCharacters = 0;           // of a page, for each stage's picture; 0: none is handed over
  std::optional<GreyLevels> levels;  // of pictures with more than 8 bits
  // What is done to the points found, in this order.
  std::optional<GridSize> renumber;     // the size of the whole grid
  std::optional<CameraSide> rearrange;  // with as many columns as were found
};

// The worker's result, in its directory.
constexpr const char* kResultFile = "result.json";
constexpr const char* kWorkerCommand = "detect-worker";

// The arguments that start a worker for one image, the subcommand first.
std::vector<std::string> WorkerArguments(const std::filesystem::path& imagePath,
                                         const std::filesystem::path& directory,
                                         const DetectParameters& parameters);

// Reads the picture, makes `directory` (which must exist) the current one, and detects there. Every
// failure is told by the result.
DetectionResult DetectInDirectory(const std::filesystem::path& imagePath,
                                  const std::filesystem::path& directory,
                                  const DetectParameters& parameters);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_DETECT_WORKER_H_
