#include "tools/points/points_run.h"

#include <fmt/format.h>

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <vector>

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

// A list that named its image in every row goes on doing so.
bool NamesImages(const OneImageFile& file) {
  return file.format == PointsFormat::kCsv && !file.list.image.empty();
}

void WriteInPlace(const PointsRun& run, const OneImageFile& file) {
  std::vector<PointsOfImage> images = file.before;
  images.push_back(file.list);
  images.insert(images.end(), file.after.begin(), file.after.end());
  // A link stays a link.
  WriteTextFileWhole(std::filesystem::canonical(run.input),
                     FormatPoints(images, file.format, NamesImages(file)));
}

int ReportNothingChanged(const PointsRun& run, const NothingChanged& reason) {
  fmt::print(stderr, "quorvex: {}: {}\n", Utf8Name(run.input), reason.what());
  return kExitNothingFound;
}

}  // namespace

void WriteList(const PointsRun& run, const OneImageFile& file) {
  if (run.isInPlace) {
    WriteInPlace(run, file);
    return;
  }
  if (!IsStandardOutput(run.output)) {
    RequireAnotherFile(run.output, run.input);
  }
  const PointsFormat format = run.format.value_or(FormatByName(run.output, file.format));
  WriteText(run.output, FormatPoints({file.list}, format, NamesImages(file)));
}

int RunConversion(const PointsRun& run) {
  WriteList(run, ReadOneImageFile(run.input, run.image));
  return kExitSuccess;
}

int RunEdit(const PointsRun& run, const Edit& edit) {
  OneImageFile file = ReadOneImageFile(run.input, run.image);
  PointList points = ToPointList(file.list.points, run.input);
  const std::size_t before = points.size();
  try {
    edit(points);
  } catch (const NothingChanged& reason) {
    return ReportNothingChanged(run, reason);
  }
  file.list.points = ToListedPoints(points, file.list.points);
  WriteList(run, file);
  if (points.size() < before) {
    fmt::print(stderr, "{}: {} of {} points removed\n", Utf8Name(run.input), before - points.size(),
               before);
  }
  return kExitSuccess;
}

int RunQuery(const PointsRun& run, int id) {
  OneImageFile file = ReadOneImageFile(run.input, run.image);
  PointList points = ToPointList(file.list.points, run.input);
  try {
    file.list.points = ToListedPoints({FindPoint(id, points)}, file.list.points);
  } catch (const NothingChanged& reason) {
    return ReportNothingChanged(run, reason);
  }
  WriteList(run, file);
  return kExitSuccess;
}

}  // namespace quorvex::tools
