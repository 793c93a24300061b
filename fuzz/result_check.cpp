#include "fuzz/result_check.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <initializer_list>
#include <utility>

namespace quorvex::fuzz {
namespace {

using precise::ImageView;
using precise::Mark;
using precise::PictureFacts;
using precise::Point;
using precise::RefinedPoint;
using precise::Result;
using precise::Verdict;

constexpr double kFarthestMove = 6.0;  // px; 4 to the place where strokes cross, and the fit's own

bool IsCovariance(double cxx, double cxy, double cyy) {
  return std::isfinite(cxx) && std::isfinite(cxy) && std::isfinite(cyy) && cxx > 0.0 && cyy > 0.0 &&
         cxx * cyy > cxy * cxy;
}

// On one of the picture's pixels.
bool IsInside(const ImageView& image, double x, double y) {
  return x >= -0.5 && y >= -0.5 && x <= image.width - 0.5 && y <= image.height - 0.5;
}

bool IsSame(double a, double b) { return std::memcmp(&a, &b, sizeof(a)) == 0; }

bool AreFactsFinite(const PictureFacts& facts) {
  const precise::CameraFacts& camera = facts.camera;
  bool isFinite = true;
  for (const double value : {facts.noise, facts.strokeWidth, facts.pitch, facts.blur,
                             facts.armLength, camera.focalLength, camera.k1, camera.k2, camera.k3,
                             camera.centreX, camera.centreY, camera.aspect, camera.residual}) {
    isFinite = isFinite && std::isfinite(value);
  }
  for (const double value : camera.rotation) {
    isFinite = isFinite && std::isfinite(value);
  }
  for (const double value : camera.translation) {
    isFinite = isFinite && std::isfinite(value);
  }
  return isFinite;
}

std::string WrongMark(const ImageView& image, const Mark& mark, bool predictsMissing) {
  if (!std::isfinite(mark.x) || !std::isfinite(mark.y)) {
    return "a mark's place is not finite";
  }
  if (!IsInside(image, mark.x, mark.y)) {
    return "a mark lies outside the picture";
  }
  if (!IsCovariance(mark.cxx, mark.cxy, mark.cyy)) {
    return "a mark's covariance is none";
  }
  if (mark.row < 0 || mark.column < 0) {
    return "a label is negative";
  }
  const bool isSeen = std::count(mark.seenArms.begin(), mark.seenArms.end(), true) > 0;
  if (isSeen == (mark.verdict == Verdict::kPredicted)) {
    return "arms of a mark do not suit its verdict";
  }
  if (mark.verdict == Verdict::kPredicted && !predictsMissing) {
    return "a mark was predicted though none was asked for";
  }
  return "";
}

std::string WrongMarks(const ImageView& image, const precise::Options& options,
                       const Result& result) {
  int firstColumn = result.marks.front().column;
  int lastColumn = firstColumn;
  for (std::size_t i = 0; i < result.marks.size(); ++i) {
    const Mark& mark = result.marks[i];
    const std::string wrong = WrongMark(image, mark, options.predictsMissing);
    if (!wrong.empty()) {
      return wrong;
    }
    firstColumn = std::min(firstColumn, mark.column);
    lastColumn = std::max(lastColumn, mark.column);
    if (i > 0 && std::make_pair(mark.row, mark.column) <=
                     std::make_pair(result.marks[i - 1].row, result.marks[i - 1].column)) {
      return "labels are not in order, or not unique";
    }
  }
  const PictureFacts& facts = result.facts;
  if ((!facts.hasFixedRows && result.marks.front().row != 0) ||
      (!facts.hasFixedColumns && firstColumn != 0)) {
    return "rows or columns do not begin with 0";
  }
  if (options.boardRows > 0 &&
      (result.marks.back().row >= options.boardRows || lastColumn >= options.boardColumns)) {
    return "a label is not on the board";
  }
  return AreFactsFinite(result.facts) ? "" : "a fact is not finite";
}

}  // namespace

std::string WrongResult(const ImageView& image, const precise::Options& options,
                        const Result& result, bool canRead) {
  if (result.marks.empty()) {
    if (result.reason.empty()) {
      return "no marks and no reason";
    }
    if ((result.stage == "input") == canRead) {
      return "stage \"" + result.stage + "\" does not suit the image";
    }
    if (result.stage == "size" && options.boardRows > 0) {
      return "";
    }
    for (const char* stage : {"input", "seed", "camera", "strokes", "check"}) {
      if (result.stage == stage) {
        return "";
      }
    }
    return "no stage is named \"" + result.stage + "\"";
  }
  if (!canRead) {
    return "marks on an image that cannot be read";
  }
  if (!result.reason.empty() || !result.stage.empty()) {
    return "marks, and yet a stage or a reason";
  }
  return WrongMarks(image, options, result);
}

std::string WrongRefinement(const ImageView& image, const std::vector<Point>& points,
                            const std::vector<RefinedPoint>& refined, bool canRead) {
  if (refined.size() != points.size()) {
    return "not one refined point for each point";
  }
  for (std::size_t i = 0; i < points.size(); ++i) {
    const RefinedPoint& point = refined[i];
    if (point.isRefined != point.reason.empty()) {
      return "a point is refined and has a reason why not, or neither";
    }
    if (!point.isRefined) {
      if (!IsSame(point.x, points[i].x) || !IsSame(point.y, points[i].y) || point.cxx != 0.0 ||
          point.cxy != 0.0 || point.cyy != 0.0) {
        return "a point that is not refined was changed";
      }
      continue;
    }
    if (!canRead || !IsInside(image, point.x, point.y) ||
        !(std::hypot(point.x - points[i].x, point.y - points[i].y) < kFarthestMove)) {
      return "a refined point lies too far away";
    }
    if (!IsCovariance(point.cxx, point.cxy, point.cyy)) {
      return "a refined point's covariance is none";
    }
  }
  return "";
}

}  // namespace quorvex::fuzz
