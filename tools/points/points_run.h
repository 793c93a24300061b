// One run of a verb: reads the list of one image, does something to it, writes it.
#ifndef QUORVEX_TOOLS_POINTS_POINTS_RUN_H_
#define QUORVEX_TOOLS_POINTS_POINTS_RUN_H_

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "interface/calibration_point.h"
#include "tools/lists/points_file.h"

namespace quorvex::tools {

// Where a list comes from and where it goes.
struct PointsRun {
  std::filesystem::path input;
  std::string image;                   // whose list; empty when the input holds one only
  std::optional<PointsFormat> format;  // when not given, as the output's name ends or as the input
  std::filesystem::path output;        // empty or "-" for standard output
  bool isInPlace = false;              // back to the input, with its other images as they are
};

// Throws NothingChanged, or InputError for an option's value.
using Edit = std::function<void(PointList&)>;

// Writes the list of one image to where the run wants it. Throws InputError.
void WriteList(const PointsRun& run, const OneImageFile& file);

// All return the exit code and throw InputError. When an edit changes nothing, its sentence goes to
// standard error and nothing is written.
int RunConversion(const PointsRun& run);
int RunEdit(const PointsRun& run, const Edit& edit);
int RunQuery(const PointsRun& run, int id);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_POINTS_POINTS_RUN_H_
