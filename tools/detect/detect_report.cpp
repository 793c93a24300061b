#include "tools/detect/detect_report.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tools/detect/detection_check.h"
#include "tools/detect/output_options.h"
#include "tools/detect/stage_pictures.h"
#include "tools/errors.h"
#include "tools/report/camera_curves.h"

namespace quorvex::tools {
namespace {

// What to do where the direct detection ends without marks, by its word for the stage.
struct DirectStage {
  const char* word;
  const char* name;
  const char* advice;
};
constexpr DirectStage kDirectStages[] = {
    {"input", "taking the picture", "use a picture of 16 pixels or more on each side"},
    {"seed", "looking for cross marks that form a grid",
     "the target needs six or more separate crosses in rows and columns, sharp and not too small; "
     "'quorvex target --check' tells whether a camera sees them well enough"},
    {"camera", "fitting a camera to the marks",
     "the target must be flat and of equal distances; look for a second target or a mirror image"},
    {"strokes", "measuring the strokes of the marks",
     "give more contrast, less blur or less noise"},
    {"check", "checking the marks against one another",
     "look for reflections, or for patterns beside the target that look like its marks"},
    {"size", "comparing the marks with the size of the board",
     "give --rows and --columns of the whole board"},
};

// "REASON; ADVICE"
std::pair<std::string, std::string> SplitAdvice(const std::string& sentence) {
  const std::size_t at = sentence.find("; ");
  return at == std::string::npos ? std::pair{sentence, std::string()}
                                 : std::pair{sentence.substr(0, at), sentence.substr(at + 2)};
}

// The stage whose picture the sentence names.
std::string StageNamedIn(const std::string& sentence) {
  for (const StagePicture& picture : kStagePictures) {
    if (sentence.find(picture.file) != std::string::npos) {
      return fmt::format("{} ({})", picture.shows, picture.file);
    }
  }
  return "";
}

// Places within the rows and columns found that have no point. Those of the direct detection count
// where the picture would show their mark.
int CountHoles(const DetectionResult& result, bool isDirect) {
  std::set<std::pair<int, int>> taken;
  int rows = 0;
  int columns = 0;
  for (const ListedPoint& point : result.found.points) {
    taken.insert({point.row, point.col});
    rows = std::max(rows, point.row + 1);
    columns = std::max(columns, point.col + 1);
  }
  int holes = 0;
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      if (taken.count({row, column}) > 0) {
        continue;
      }
      const PicturePlace place = SeenAt(result.direct.facts.camera, row, column);
      const bool isInside = place.x >= 0 && place.y >= 0 && place.x <= result.found.width - 1 &&
                            place.y <= result.found.height - 1;
      holes += !isDirect || isInside ? 1 : 0;
    }
  }
  return holes;
}

// Of the other detection the direct one tells what it lost, where it found marks.
int CountMissing(const DetectionResult& result, bool isDirect) {
  if (isDirect || result.direct.marks.empty()) {
    return CountHoles(result, isDirect);
  }
  return static_cast<int>(
      std::count_if(result.disagreements.begin(), result.disagreements.end(),
                    [](const Disagreement& each) { return each.kind == DisagreementKind::kLost; }));
}

// With the mark beside it, where there is one.
std::vector<ReportedPoint> PointsWithResiduals(const DetectionResult& result) {
  std::vector<ReportedPoint> reported;
  for (const ListedPoint& point : result.found.points) {
    reported.push_back({point});
  }
  const precise::PictureFacts& facts = result.direct.facts;
  for (const precise::Mark& mark : result.direct.marks) {
    const ListedPoint* point = PointAt(result.found.points, mark, facts.pitch);
    if (mark.verdict == precise::Verdict::kPredicted || point == nullptr) {
      continue;
    }
    const PicturePlace expected = SeenAt(facts.camera, mark.row, mark.column);
    const std::size_t index = static_cast<std::size_t>(point - result.found.points.data());
    reported[index].residual = PicturePlace{point->x - expected.x, point->y - expected.y};
  }
  return reported;
}

// Points that were seen where the direct detection has no mark.
void AddExtraPoints(const DetectionResult& result, ReportedPicture& picture) {
  if (result.direct.marks.empty()) {
    return;
  }
  for (const ReportedPoint& reported : picture.points) {
    if (!reported.residual && !IsComputed(reported.point.kind)) {
      picture.disagreements.push_back({DisagreementKind::kExtra, std::nullopt, reported.point});
    }
  }
}

std::vector<std::pair<std::string, std::string>> FactsOf(const DirectFindings& direct) {
  if (direct.marks.empty()) {
    return {};
  }
  const precise::PictureFacts& facts = direct.facts;
  return {
      {"noise", fmt::format("{:.2g} grey levels", facts.noise)},
      {"blur", fmt::format("{:.2f} px (sigma)", facts.blur)},
      {"stroke width", fmt::format("{:.1f} px", facts.strokeWidth)},
      {"from mark to mark", fmt::format("{:.1f} px", facts.pitch)},
      {"marks", facts.hasLightMarks ? "light" : "dark"},
      {"focal length", fmt::format("{:.1f} px per radian", facts.camera.focalLength)},
      {"optical centre", fmt::format("{:.1f}, {:.1f}", facts.camera.centreX, facts.camera.centreY)},
      {"marks from the fitted camera", fmt::format("{:.3f} px", facts.camera.residual)}};
}

ReportVerdict VerdictOf(const DetectionResult& result, const ReportedPicture& picture) {
  if (result.exitCode != kExitSuccess) {
    return ReportVerdict::kFailed;
  }
  const bool isDoubted = !result.warning.empty() || !picture.disagreements.empty();
  return isDoubted ? ReportVerdict::kCheck : ReportVerdict::kGood;
}

std::vector<std::string> ColumnNames(const std::string& header) {
  std::vector<std::string> names;
  std::size_t first = 0;
  for (std::size_t end = header.find_first_of(",\n"); end != std::string::npos;
       end = header.find_first_of(",\n", first)) {
    names.push_back(header.substr(first, end - first));
    first = end + 1;
  }
  return names;
}

}  // namespace

ReportedRun ReportedRunOf(const DetectOptions& options) {
  ReportedRun run;
  run.isDirect = options.isPrecise;
  run.options = DescribeOptions(options);
  run.columns = ColumnNames(FormatCsvHeader(ColumnsOf(options, options.images.size() > 1)));
  if (!options.isPrecise) {
    for (const StagePicture& picture : kStagePictures) {
      run.stages.push_back({picture.file, picture.shows, picture.healthy});
    }
  }
  return run;
}

ReportedFailure FailureOf(const DetectionResult& result) {
  const auto [reason, advice] = SplitAdvice(result.found.error);
  if (result.exitCode == kExitBadInput) {
    return {"reading the picture", reason, advice};
  }
  for (const DirectStage& stage : kDirectStages) {
    if (result.stage == stage.word) {
      return {stage.name, reason, advice.empty() ? stage.advice : advice};
    }
  }
  return {StageNamedIn(result.found.error), reason, advice};
}

ReportedPicture ReportedPictureOf(const DetectionResult& result, bool isDirect,
                                  std::optional<Picture> picture) {
  ReportedPicture reported;
  reported.name = result.found.image;
  reported.width = picture ? picture->width : 0;
  reported.height = picture ? picture->height : 0;
  reported.picture = std::move(picture);
  reported.notes = result.notes;
  reported.stages = result.stagePictures;
  if (result.exitCode != kExitSuccess) {
    reported.verdict = ReportVerdict::kFailed;
    reported.message = result.found.error;
    reported.failure = FailureOf(result);
    return reported;
  }
  reported.message = result.warning;
  reported.points = PointsWithResiduals(result);
  reported.missing = CountMissing(result, isDirect);
  reported.disagreements = result.disagreements;
  AddExtraPoints(result, reported);
  reported.rowCurves = RowCurves(result.direct.facts.camera, result.direct.marks);
  reported.columnCurves = ColumnCurves(result.direct.facts.camera, result.direct.marks);
  reported.facts = FactsOf(result.direct);
  reported.verdict = VerdictOf(result, reported);
  return reported;
}

}  // namespace quorvex::tools
