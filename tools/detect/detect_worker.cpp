#include "tools/detect/detect_worker.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <utility>

#include "interface/quorvex.h"
#include "tools/detect/detection_check.h"
#include "tools/detect/failure_diagnosis.h"
#include "tools/detect/padding.h"
#include "tools/detect/point_judge.h"
#include "tools/detect/precise_detection.h"
#include "tools/detect/stage_pictures.h"
#include "tools/lists/option_text.h"
#include "tools/lists/point_list.h"
#include "tools/pictures/picture_file.h"
#include "tools/system/file_name.h"

namespace quorvex::tools {
namespace {

void RequireDetectableSize(const Picture& picture, const std::filesystem::path& path) {
  if (!HasDetectableSize(picture)) {
    throw InputError(fmt::format(
        "{} is {} x {} pixels, but width and height must be multiples of 4; without --no-pad the "
        "picture is grown",
        Utf8Name(path), picture.width, picture.height));
  }
}

std::string PaddingNote(const Picture& original, const Picture& padded) {
  return fmt::format(
      "grown from {} x {} to {} x {} pixels, since the detection needs multiples of 4; positions "
      "are those of the picture",
      original.width, original.height, padded.width, padded.height);
}

// The detection takes the rows of a picture from the bottom up.
std::vector<unsigned char> BottomUpPixels(const Picture& picture) {
  std::vector<unsigned char> rows;
  rows.reserve(picture.pixels.size());
  for (int y = picture.height - 1; y >= 0; --y) {
    const auto row = picture.pixels.begin() + static_cast<std::ptrdiff_t>(y) * picture.width;
    rows.insert(rows.end(), row, row + picture.width);
  }
  return rows;
}

// Drops what lies outside the original picture. The comparisons are false for a position that is
// not a number, so such a point goes too.
void KeepPointsInside(int width, int height, PointList& points) {
  const auto isOutside = [width, height](const CalibrationPoint& p) {
    return !(p.x >= 0 && p.x <= static_cast<float>(width - 1) && p.y >= 0 &&
             p.y <= static_cast<float>(height - 1));
  };
  points.erase(std::remove_if(points.begin(), points.end(), isOutside), points.end());
}

// Throws NothingChanged.
void NumberAsWanted(const DetectParameters& parameters, PointList& points) {
  if (parameters.renumber) {
    Renumber(*parameters.renumber, points);
  }
  if (parameters.rearrange) {
    Rearrange(*parameters.rearrange, CountColumns(points), points);
  }
}

bool DetectPoints(const Picture& picture, const DetectParameters& parameters, PointList& points) {
  std::vector<unsigned char> pixels = BottomUpPixels(picture);
  return SingleCamDetectCalibrationPoint(pixels.data(), picture.width, picture.height, 8,
                                         parameters.rowSpan, parameters.columnSpan, 0.0f, 0.0f,
                                         parameters.rowSteps, points);
}

// Says nothing where the direct detection finds no target: it cannot tell then.
void Check(const Picture& picture, const PointList& points, DetectionResult& result) {
  precise::Result direct = precise::Detect(ViewOf(picture));
  if (direct.marks.empty()) {
    return;
  }
  const DetectionCheck check =
      CheckPoints(ToListedPoints(points), direct.marks, direct.facts.pitch);
  result.warning = DescribeCheck(check);
  result.disagreements = check.disagreements;
  result.direct = {std::move(direct.marks), direct.facts};
}

DetectionResult Detect(const std::filesystem::path& imagePath,
                       const std::filesystem::path& directory, const DetectParameters& parameters) {
  const Picture original = ReadPictureFile(imagePath, parameters.levels);
  if (!parameters.pad) {
    RequireDetectableSize(original, imagePath);
  }
  // Only now: the image's path is relative to where the command was started.
  std::filesystem::current_path(directory);
  DetectionResult result;
  if (!original.note.empty()) {
    result.notes.push_back(original.note);
  }
  PointList list;
  bool gridFound = false;
  try {
    if (HasDetectableSize(original)) {
      gridFound = DetectPoints(original, parameters, list);
    } else {
      const Picture padded = PadToDetectableSize(original);
      result.notes.push_back(PaddingNote(original, padded));
      gridFound = DetectPoints(padded, parameters, list);
    }
  } catch (const std::bad_alloc&) {
    throw std::runtime_error(fmt::format("out of memory for a picture of {} x {} pixels",
                                         original.width, original.height));
  }

  result.found.width = original.width;
  result.found.height = original.height;
  KeepPointsInside(original.width, original.height, list);
  if (!gridFound || list.empty()) {
    result.exitCode = kExitNothingFound;
    result.message = fmt::format("{}: {}", Utf8Name(imagePath),
                                 DescribeFailure({".", gridFound, original.bitsPerSample}));
    return result;
  }
  if (parameters.check) {
    Check(original, list, result);
  }
  try {
    NumberAsWanted(parameters, list);
    result.found.points = ToListedPoints(list);
    for (ListedPoint& p : result.found.points) {
      p.kind = JudgePoint(original, p.x, p.y);
    }
  } catch (const NothingChanged& reason) {
    result.exitCode = kExitNothingFound;
    result.message = fmt::format(
        "{}: {}; detect it without --renumber and --rearrange, and correct the list "
        "with 'quorvex points'",
        Utf8Name(imagePath), reason.what());
  }
  return result;
}

}  // namespace

std::vector<std::string> WorkerArguments(const std::filesystem::path& imagePath,
                                         const std::filesystem::path& directory,
                                         const DetectParameters& parameters) {
  std::vector<std::string> arguments{kWorkerCommand,
                                     "--row-span",
                                     std::to_string(parameters.rowSpan),
                                     "--column-span",
                                     std::to_string(parameters.columnSpan),
                                     "--row-steps",
                                     std::to_string(parameters.rowSteps)};
  if (!parameters.pad) {
    arguments.push_back("--no-pad");
  }
  if (parameters.levels) {
    arguments.insert(arguments.end(), {"--levels", GreyLevelsText(*parameters.levels)});
  }
  if (!parameters.check) {
    arguments.push_back("--no-check");
  }
  if (parameters.stageCharacters > 0) {
    arguments.insert(arguments.end(),
                     {"--stage-characters", std::to_string(parameters.stageCharacters)});
  }
  if (parameters.renumber) {
    arguments.insert(arguments.end(), {"--renumber", GridSizeText(*parameters.renumber)});
  }
  if (parameters.rearrange) {
    const bool left = *parameters.rearrange == CameraSide::kLeft;
    arguments.insert(arguments.end(), {"--rearrange", left ? "left" : "right"});
  }
  // After the dashes a path may begin with one.
  arguments.insert(arguments.end(), {"--", Utf8Name(imagePath), Utf8Name(directory)});
  return arguments;
}

DetectionResult DetectInDirectory(const std::filesystem::path& imagePath,
                                  const std::filesystem::path& directory,
                                  const DetectParameters& parameters) {
  DetectionResult result;
  try {
    result = Detect(imagePath, directory, parameters);
    if (parameters.stageCharacters > 0) {
      result.stagePictures =
          ReadStagePictures(".", static_cast<std::size_t>(parameters.stageCharacters));
    }
  } catch (const InputError& error) {
    result.exitCode = kExitBadInput;
    result.message = error.what();
  } catch (const std::exception& error) {
    result.exitCode = kExitNothingFound;
    result.message = fmt::format("{}: the detection failed: {}", Utf8Name(imagePath), error.what());
  }
  return result;
}

}  // namespace quorvex::tools
