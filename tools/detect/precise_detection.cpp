#include "tools/detect/precise_detection.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <exception>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "tools/pictures/picture_file.h"
#include "tools/system/file_name.h"

namespace quorvex::tools {
namespace {

PointKind KindOf(precise::Verdict verdict) {
  switch (verdict) {
    case precise::Verdict::kMeasured:
      return PointKind::kMeasured;
    case precise::Verdict::kDoubtful:
      return PointKind::kDoubtful;
    case precise::Verdict::kPredicted:
      break;
  }
  return PointKind::kPredicted;
}

// Numbered row by row, as the other detection numbers its points; by the columns of the board, when
// they are known.
std::vector<ListedPoint> ToListedPoints(const std::vector<precise::Mark>& marks, int boardColumns) {
  int columns = boardColumns;
  for (const precise::Mark& mark : marks) {
    columns = std::max(columns, mark.column + 1);
  }
  std::vector<ListedPoint> points;
  points.reserve(marks.size());
  for (const precise::Mark& mark : marks) {
    points.push_back({mark.row * columns + mark.column + 1, mark.row, mark.column, mark.x, mark.y,
                      KindOf(mark.verdict), Covariance{mark.cxx, mark.cxy, mark.cyy}});
  }
  return points;
}

// Lengths are pixels but for those of the pose and the arms, which are pitches of the columns.
std::vector<std::pair<std::string, double>> ToListedFacts(const precise::PictureFacts& facts) {
  const precise::CameraFacts& camera = facts.camera;
  std::vector<std::pair<std::string, double>> listed{{"noise", facts.noise},
                                                     {"stroke_width", facts.strokeWidth},
                                                     {"pitch", facts.pitch},
                                                     {"blur", facts.blur},
                                                     {"arm_length", facts.armLength},
                                                     {"light_marks", facts.hasLightMarks ? 1 : 0},
                                                     {"focal_length", camera.focalLength},
                                                     {"k1", camera.k1},
                                                     {"k2", camera.k2},
                                                     {"centre_x", camera.centreX},
                                                     {"centre_y", camera.centreY},
                                                     {"aspect", camera.aspect},
                                                     {"residual", camera.residual}};
  for (std::size_t i = 0; i < camera.rotation.size(); ++i) {
    listed.emplace_back(fmt::format("rotation_{}{}", i / 3, i % 3), camera.rotation[i]);
  }
  for (std::size_t i = 0; i < camera.translation.size(); ++i) {
    listed.emplace_back(fmt::format("translation_{}", i), camera.translation[i]);
  }
  return listed;
}

// "rows are the board's, columns count from the first one found"
std::string DescribeLabels(const precise::PictureFacts& facts) {
  if (facts.hasFixedRows == facts.hasFixedColumns) {
    return facts.hasFixedRows ? "rows and columns are the board's"
                              : "rows and columns count from the first ones found";
  }
  return facts.hasFixedRows ? "rows are the board's, columns count from the first one found"
                            : "columns are the board's, rows count from the first one found";
}

// Says that labels may be others than the board's; nothing when they are the board's.
std::string WarnOfLabels(const precise::PictureFacts& facts, const precise::Options& options) {
  const std::string rows = fmt::format("{} rows", options.boardRows);
  const std::string columns = fmt::format("{} columns", options.boardColumns);
  if (facts.hasFixedRows && facts.hasFixedColumns) {
    return "";
  }
  return fmt::format("which of the board's {} were found cannot be told",
                     facts.hasFixedRows      ? columns
                     : facts.hasFixedColumns ? rows
                                             : rows + " and " + columns);
}

}  // namespace

precise::ImageView ViewOf(const Picture& picture) {
  return {picture.pixels.data(), picture.width, picture.height, picture.width};
}

DetectionResult DetectPrecisely(const std::filesystem::path& image, const precise::Options& options,
                                const std::optional<GreyLevels>& levels) {
  DetectionResult result;
  result.found.image = Utf8Name(image);
  try {
    const Picture picture = ReadPictureFile(image, levels);
    if (!picture.note.empty()) {
      result.notes.push_back(picture.note);
    }
    precise::Result found = precise::Detect(ViewOf(picture), options);
    result.found.width = picture.width;
    result.found.height = picture.height;
    if (found.marks.empty()) {
      result.exitCode = kExitNothingFound;
      result.stage = found.stage;
      const std::string start = found.stage == "size" ? "" : "no target was found: ";
      result.message = fmt::format("{}: {}{}", result.found.image, start, found.reason);
      return result;
    }
    result.found.points = ToListedPoints(found.marks, options.boardColumns);
    result.found.facts = ToListedFacts(found.facts);
    if (options.boardRows > 0) {
      result.found.facts.emplace_back("fixed_rows", found.facts.hasFixedRows ? 1 : 0);
      result.found.facts.emplace_back("fixed_columns", found.facts.hasFixedColumns ? 1 : 0);
      result.found.labels = DescribeLabels(found.facts);
      result.warning = WarnOfLabels(found.facts, options);
    }
    result.direct = {std::move(found.marks), found.facts};
  } catch (const InputError& error) {
    result.exitCode = kExitBadInput;
    result.message = error.what();
  } catch (const std::bad_alloc&) {
    result.exitCode = kExitNothingFound;
    result.message = fmt::format("{}: out of memory", result.found.image);
  } catch (const std::exception& error) {  // one picture must not end the run
    result.exitCode = kExitNothingFound;
    result.message = fmt::format("{}: the detection failed: {}", result.found.image, error.what());
  }
  return result;
}

}  // namespace quorvex::tools
