#include "tools/report/report_json.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <vector>

namespace quorvex::tools {
namespace {

using Json = nlohmann::json;

constexpr int kPositionDigits = 9;  // as lists have them
constexpr int kCovarianceDigits = 6;
constexpr int kResidualDigits = 4;

double Rounded(double value, int digits) {
  return std::stod(fmt::format("{:.{}g}", value, digits));
}

// To a hundredth of a pixel, which is more than a screen shows.
double OnScreen(double pixels) { return std::round(pixels * 100) / 100; }

std::string Html(const Json& json) {
  const std::string text = json.dump(-1, ' ', false, Json::error_handler_t::replace);
  std::string safe;
  safe.reserve(text.size());
  for (const char letter : text) {
    if (letter == '<') {
      safe += "\\u003c";
    } else {
      safe += letter;
    }
  }
  return safe;
}

const char* VerdictName(ReportVerdict verdict) {
  switch (verdict) {
    case ReportVerdict::kGood:
      return "good";
    case ReportVerdict::kCheck:
      return "check";
    case ReportVerdict::kFailed:
      break;
  }
  return "failed";
}

const char* DisagreementName(DisagreementKind kind) {
  switch (kind) {
    case DisagreementKind::kLabel:
      return "label";
    case DisagreementKind::kLost:
      return "lost";
    case DisagreementKind::kOff:
      return "off";
    case DisagreementKind::kExtra:
      break;
  }
  return "extra";
}

Json PlaceJson(const ListedPoint& point) {
  return {{"row", point.row},
          {"col", point.col},
          {"x", Rounded(point.x, kPositionDigits)},
          {"y", Rounded(point.y, kPositionDigits)}};
}

Json PointJson(const ReportedPoint& reported) {
  const ListedPoint& point = reported.point;
  Json json = PlaceJson(point);
  json["id"] = point.id;
  json["kind"] = KindName(point.kind);
  if (reported.residual) {
    json["residual"] = {Rounded(reported.residual->x, kResidualDigits),
                        Rounded(reported.residual->y, kResidualDigits)};
  }
  if (point.covariance) {
    json["covariance"] = {Rounded(point.covariance->xx, kCovarianceDigits),
                          Rounded(point.covariance->xy, kCovarianceDigits),
                          Rounded(point.covariance->yy, kCovarianceDigits)};
  }
  return json;
}

Json DisagreementJson(const Disagreement& disagreement) {
  Json json = disagreement.mark ? PlaceJson(*disagreement.mark) : Json::object();
  json["what"] = DisagreementName(disagreement.kind);
  if (disagreement.listed) {
    json["listed"] = PlaceJson(*disagreement.listed);
  }
  return json;
}

Json CurvesJson(const std::vector<Curve>& curves) {
  Json json = Json::array();
  for (const Curve& curve : curves) {
    Json places = Json::array();
    for (const PicturePlace& place : curve) {
      places.push_back({OnScreen(place.x), OnScreen(place.y)});
    }
    json.push_back(std::move(places));
  }
  return json;
}

// How many points there are, and how far those that were seen are from the camera's prediction.
void AddSummary(const ReportedPicture& picture, Json& json) {
  int filled = 0;
  int compared = 0;
  double worst = 0;
  double squares = 0;
  for (const ReportedPoint& reported : picture.points) {
    if (IsComputed(reported.point.kind)) {
      ++filled;
    } else if (reported.residual) {
      const double residual = std::hypot(reported.residual->x, reported.residual->y);
      ++compared;
      worst = std::max(worst, residual);
      squares += residual * residual;
    }
  }
  json["found"] = static_cast<int>(picture.points.size()) - filled;
  json["filled"] = filled;
  json["missing"] = picture.missing ? Json(*picture.missing) : Json();
  json["worst"] = compared > 0 ? Json(Rounded(worst, kResidualDigits)) : Json();
  json["rms"] =
      compared > 0 ? Json(Rounded(std::sqrt(squares / compared), kResidualDigits)) : Json();
}

}  // namespace

std::string RunJson(const ReportedRun& run, const std::string& version) {
  Json stages = Json::array();
  for (const ReportedStage& stage : run.stages) {
    stages.push_back({{"file", stage.file}, {"shows", stage.shows}, {"healthy", stage.healthy}});
  }
  return Html({{"version", version},
               {"detection", run.isDirect ? "direct" : "host"},
               {"options", run.options},
               {"stages", std::move(stages)},
               {"columns", run.columns}});
}

std::string PictureJson(const ReportedPicture& picture, const FittedPhoto& photo) {
  Json json{{"name", picture.name},       {"width", picture.width},
            {"height", picture.height},   {"verdict", VerdictName(picture.verdict)},
            {"message", picture.message}, {"notes", picture.notes},
            {"points", Json::array()},    {"disagreements", Json::array()},
            {"facts", Json::array()}};
  AddSummary(picture, json);
  if (picture.failure) {
    json["failure"] = {{"stage", picture.failure->stage},
                       {"reason", picture.failure->reason},
                       {"advice", picture.failure->advice}};
  }
  for (const ReportedPoint& point : picture.points) {
    json["points"].push_back(PointJson(point));
  }
  for (const Disagreement& disagreement : picture.disagreements) {
    json["disagreements"].push_back(DisagreementJson(disagreement));
  }
  for (const auto& [name, text] : picture.facts) {
    json["facts"].push_back({name, text});
  }
  if (!picture.rowCurves.empty() || !picture.columnCurves.empty()) {
    json["curves"] = {{"rows", CurvesJson(picture.rowCurves)},
                      {"columns", CurvesJson(picture.columnCurves)}};
  }
  if (!photo.dataUri.empty()) {
    json["kept"] = {{"width", photo.width}, {"height", photo.height}};
  }
  return Html(json);
}

}  // namespace quorvex::tools
