// What a report shows of one picture.
#ifndef QUORVEX_TOOLS_REPORT_REPORTED_PICTURE_H_
#define QUORVEX_TOOLS_REPORT_REPORTED_PICTURE_H_

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/lists/disagreement.h"
#include "tools/lists/listed_points.h"
#include "tools/pictures/picture.h"

namespace quorvex::tools {

struct PicturePlace {
  double x = 0;  // pixels, as of a ListedPoint
  double y = 0;
};

using Curve = std::vector<PicturePlace>;

enum class ReportVerdict { kGood, kCheck, kFailed };

// Each may be empty.
struct ReportedFailure {
  std::string stage;   // what was being done
  std::string reason;  // what was not as it must be
  std::string advice;  // what to change
};

struct ReportedPoint {
  ListedPoint point;
  // From where the fitted camera puts the mark to the point, pixels; nothing where no mark is near.
  std::optional<PicturePlace> residual = {};
};

// A picture in the page: its file, and where it comes from.
struct ReportedImage {
  std::string name;     // "ProImage.bmp"
  std::string dataUri;  // data_uri.h
};

struct ReportedPicture {
  std::string name;  // as the user gave it
  int width = 0;     // pixels; 0 when it was not read
  int height = 0;
  ReportVerdict verdict = ReportVerdict::kGood;
  std::string message = {};             // a sentence on what is wrong
  std::vector<std::string> notes = {};  // on how the picture was taken, a sentence each
  std::optional<ReportedFailure> failure = {};
  std::optional<int> missing = {};  // marks without a point; nothing when it cannot be told
  std::vector<ReportedPoint> points = {};
  std::vector<Curve> rowCurves = {};
  std::vector<Curve> columnCurves = {};
  std::vector<Disagreement> disagreements = {};
  std::vector<std::pair<std::string, std::string>> facts = {};  // name and text
  std::optional<Picture> picture = {};                          // nothing when it cannot be read
  std::vector<ReportedImage> stages = {};
};

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_REPORT_REPORTED_PICTURE_H_
