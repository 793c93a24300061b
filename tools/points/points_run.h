// One run of a verb: reads the list of one image, does something to it, writes it.
#ifndef QUORVEX_TOOLS_POINTS_POINTS_RUN_H_
#define QUORVEX_TOOLS_POINTS_POINTS_RUN_H_

#include <functional>
#include <optional>
#include <string>

#include "interface/calibration_point.h"
#include "tools/lists/points_file.h"

namespace quorvex::tools {

// Where a list comes from and where it goes.
struct Road {
  std::string file;
  std::optional<PointsFormat> format;  // that of the file when not given
  std::string output;                  // empty for standard output
  bool isInPlace = false;
};

// Throws NothingChanged, or InputError for an option's value.
using Edit = std::function<void(PointList&)>;

// All return the exit code and throw InputError. When an edit changes nothing, its sentence goes to
// standard error and nothing is written.
int RunConversion(const Road& road);
int RunEdit(const Road& road, const Edit& edit);
int RunQuery(const Road& road, int id);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_POINTS_POINTS_RUN_H_
