#include "tools/points/points_run.h"

#include <fmt/format.h>

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "tools/errors.h"
#include "tools/lists/point_edits.h"
#include "tools/lists/point_list.h"
#include "tools/system/file_name.h"
#include "tools/system/output_file.h"

namespace quorvex::tools {
namespace {

void RequireAnotherFile(const std::filesystem::path& output, const std::filesystem::path& input) {
  std::error_code ignored;
  if (std::filesystem::equivalent(output, input, ignored)) {
    throw InputError(
        fmt::format("{} is the list itself; --in-place writes over it", Utf8Name(output)));
  }
}

void WriteList(const PointsRun& run, const OneImageFile& file) {
  const PointsFormat format = run.format.value_or(file.format);
  // A list that named its image in every row goes on doing so.
  const bool withImageColumn = file.format == PointsFormat::kCsv && !file.list.image.empty();
  const std::string text = FormatPoints({file.list}, format, withImageColumn);
  if (run.isInPlace) {
    // A link stays a link.
    WriteTextFileWhole(std::filesystem::canonical(run.input), text);
  } else if (!run.output.empty()) {
    RequireAnotherFile(run.output, run.input);
    WriteTextFileWhole(run.output, text);
  } else {
    WriteToStandardOutput(text);
  }
}

int ReportNothingChanged(const PointsRun& run, const NothingChanged& reason) {
  fmt::print(stderr, "quorvex: {}: {}\n", Utf8Name(run.input), reason.what());
  return kExitNothingFound;
}

}  // namespace

int RunConversion(const PointsRun& run) {
  WriteList(run, ReadOneImageFile(run.input));
  return kExitSuccess;
}

int RunEdit(const PointsRun& run, const Edit& edit) {
  OneImageFile file = ReadOneImageFile(run.input);
  PointList points = ToPointList(file.list.points, run.input);
  const std::size_t before = points.size();
  try {
    edit(points);
  } catch (const NothingChanged& reason) {
    return ReportNothingChanged(run, reason);
  }
  file.list.points = ToListedPoints(points);
  WriteList(run, file);
  if (points.size() < before) {
    fmt::print(stderr, "{}: {} of {} points removed\n", Utf8Name(run.input), before - points.size(),
               before);
  }
  return kExitSuccess;
}

int RunQuery(const PointsRun& run, int id) {
  OneImageFile file = ReadOneImageFile(run.input);
  PointList points = ToPointList(file.list.points, run.input);
  try {
    file.list.points = ToListedPoints({FindPoint(id, points)});
  } catch (const NothingChanged& reason) {
    return ReportNothingChanged(run, reason);
  }
  WriteList(run, file);
  return kExitSuccess;
}

}  // namespace quorvex::tools
