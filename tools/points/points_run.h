// One run of a verb: reads the list of one image, does something to it, writes it.
#ifndef QUORVEX_TOOLS_POINTS_POINTS_RUN_H_
#define QUORVEX_TOOLS_POINTS_POINTS_RUN_H_

#include <filesystem>
#include <functional>
#include <optional>

#include "interface/calibration_point.h"
#include "tools/lists/points_file.h"

namespace quorvex::tools {

// Where a list comes from and where it goes.
struct PointsRun {
  std::filesystem::path input;
  std::optional<PointsFormat> format;  // that of the input when not given
  std::filesystem::path output;        // empty for standard output
  bool isInPlace = false;
};

// Throws NothingChanged, or InputError for an option's value.
using Edit = std::function<void(PointList&)>;

// All return the exit code and throw InputError. When an edit changes nothing, its sentence goes to
// standard error and nothing is written.
int RunConversion(const PointsRun& run);
int RunEdit(const PointsRun& run, const Edit& edit);
int RunQuery(const PointsRun& run, int id);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_POINTS_POINTS_RUN_H_
