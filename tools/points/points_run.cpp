#include "tools/points/points_run.h"

#include <fmt/format.h>

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "tools/errors.h"
#include "tools/lists/point_edits.h"
#include "tools/lists/point_list.h"
#include "tools/system/output_file.h"

namespace quorvex::tools {
namespace {

void RequireAnotherFile(const std::string& output, const std::string& input) {
  std::error_code ignored;
  if (std::filesystem::equivalent(std::filesystem::u8path(output), std::filesystem::u8path(input),
                                  ignored)) {
    throw InputError(fmt::format("{} is the list itself; --in-place writes over it", output));
  }
}

void WriteList(const Road& road, const OneImageFile& file) {
  const PointsFormat format = road.format.value_or(file.format);
  // A list that named its image in every row goes on doing so.
  const bool withImageColumn = file.format == PointsFormat::kCsv && !file.points.image.empty();
  const std::string text = FormatPoints({file.points}, format, withImageColumn);
  if (road.isInPlace) {
    // A link stays a link.
    WriteTextFileWhole(std::filesystem::canonical(std::filesystem::u8path(road.file)).string(),
                       text);
  } else if (!road.output.empty()) {
    RequireAnotherFile(road.output, road.file);
    WriteTextFileWhole(road.output, text);
  } else {
    WriteToStandardOutput(text);
  }
}

int Tell(const Road& road, const NothingChanged& reason) {
  fmt::print(stderr, "quorvex: {}: {}\n", road.file, reason.what());
  return kExitNothingFound;
}

}  // namespace

int RunConversion(const Road& road) {
  WriteList(road, ReadOneImageFile(road.file));
  return kExitSuccess;
}

int RunEdit(const Road& road, const Edit& edit) {
  OneImageFile file = ReadOneImageFile(road.file);
  PointList points = ToPointList(file.points.points, road.file);
  const std::size_t before = points.size();
  try {
    edit(points);
  } catch (const NothingChanged& reason) {
    return Tell(road, reason);
  }
  file.points.points = ToRows(points);
  WriteList(road, file);
  if (points.size() < before) {
    fmt::print(stderr, "{}: {} of {} points removed\n", road.file, before - points.size(), before);
  }
  return kExitSuccess;
}

int RunQuery(const Road& road, int id) {
  OneImageFile file = ReadOneImageFile(road.file);
  PointList points = ToPointList(file.points.points, road.file);
  try {
    file.points.points = ToRows({FindPoint(id, points)});
  } catch (const NothingChanged& reason) {
    return Tell(road, reason);
  }
  WriteList(road, file);
  return kExitSuccess;
}

}  // namespace quorvex::tools
