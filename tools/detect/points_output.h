// Where the points of image after image go, until all of them are put in place together.
#ifndef QUORVEX_TOOLS_DETECT_POINTS_OUTPUT_H_
#define QUORVEX_TOOLS_DETECT_POINTS_OUTPUT_H_

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/detect/output_format.h"
#include "tools/lists/grid_position.h"
#include "tools/lists/listed_points.h"
#include "tools/lists/points_csv.h"

namespace quorvex::tools {

// What people should know of a file that was written.
struct OutputReport {
  std::vector<std::string> faults;  // a sentence each: images that it lacks
  std::vector<std::string> notes;
};

class PointsOutput {
 public:
  PointsOutput() = default;
  PointsOutput(const PointsOutput&) = delete;
  PointsOutput& operator=(const PointsOutput&) = delete;
  virtual ~PointsOutput() = default;

  // Throws InputError (tools/errors.h).
  virtual void Add(const PointsOfImage& list) = 0;

  // Puts the file in place. Throws InputError; there is no file then.
  virtual OutputReport Finish() = 0;
};

struct OutputSettings {
  std::filesystem::path path;  // empty or "-" for standard output
  OutputFormat format = OutputFormat::kCsv;
  CsvColumns columns;             // of a CSV table
  std::optional<GridSize> board;  // of a table of one board; absent for the largest grid found
  double pitch = 0;               // millimetres
};

// Lists are written as they come, beyond some MiB into a temporary file; a table of one board holds
// the points of all images in memory, since its size may be known with the last of them only.
std::unique_ptr<PointsOutput> MakePointsOutput(const OutputSettings& settings);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_POINTS_OUTPUT_H_
