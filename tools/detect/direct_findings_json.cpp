#include "tools/detect/direct_findings_json.h"

#include <optional>
#include <utility>

namespace quorvex::tools {
namespace {

using Json = nlohmann::json;

Json PlaceJson(const std::optional<ListedPoint>& place) {
  return place ? Json{place->row, place->col, place->x, place->y} : Json();
}

std::optional<ListedPoint> PlaceOf(const Json& json) {
  if (json.is_null()) {
    return std::nullopt;
  }
  return ListedPoint{-1, json.at(0), json.at(1), json.at(2), json.at(3)};
}

Json CameraJson(const precise::CameraFacts& camera) {
  return {{"rotation", camera.rotation},
          {"translation", camera.translation},
          {"focalLength", camera.focalLength},
          {"k1", camera.k1},
          {"k2", camera.k2},
          {"k3", camera.k3},
          {"centreX", camera.centreX},
          {"centreY", camera.centreY},
          {"aspect", camera.aspect},
          {"residual", camera.residual}};
}

precise::CameraFacts CameraOf(const Json& json) {
  precise::CameraFacts camera;
  json.at("rotation").get_to(camera.rotation);
  json.at("translation").get_to(camera.translation);
  camera.focalLength = json.at("focalLength");
  camera.k1 = json.at("k1");
  camera.k2 = json.at("k2");
  camera.k3 = json.at("k3");
  camera.centreX = json.at("centreX");
  camera.centreY = json.at("centreY");
  camera.aspect = json.at("aspect");
  camera.residual = json.at("residual");
  return camera;
}

}  // namespace

Json ToJson(const DirectFindings& findings) {
  Json marks = Json::array();
  for (const precise::Mark& mark : findings.marks) {
    marks.push_back({mark.row, mark.column, mark.x, mark.y, mark.verdict});
  }
  const precise::PictureFacts& facts = findings.facts;
  return {{"marks", std::move(marks)},
          {"noise", facts.noise},
          {"strokeWidth", facts.strokeWidth},
          {"pitch", facts.pitch},
          {"blur", facts.blur},
          {"armLength", facts.armLength},
          {"hasLightMarks", facts.hasLightMarks},
          {"camera", CameraJson(facts.camera)}};
}

DirectFindings DirectFindingsOf(const Json& json) {
  DirectFindings findings;
  for (const Json& listed : json.at("marks")) {
    precise::Mark mark;
    mark.row = listed.at(0);
    mark.column = listed.at(1);
    mark.x = listed.at(2);
    mark.y = listed.at(3);
    mark.verdict = listed.at(4);
    findings.marks.push_back(mark);
  }
  precise::PictureFacts& facts = findings.facts;
  facts.noise = json.at("noise");
  facts.strokeWidth = json.at("strokeWidth");
  facts.pitch = json.at("pitch");
  facts.blur = json.at("blur");
  facts.armLength = json.at("armLength");
  facts.hasLightMarks = json.at("hasLightMarks");
  facts.camera = CameraOf(json.at("camera"));
  return findings;
}

Json ToJson(const std::vector<Disagreement>& disagreements) {
  Json list = Json::array();
  for (const Disagreement& disagreement : disagreements) {
    list.push_back(
        {disagreement.kind, PlaceJson(disagreement.mark), PlaceJson(disagreement.listed)});
  }
  return list;
}

std::vector<Disagreement> DisagreementsOf(const Json& json) {
  std::vector<Disagreement> disagreements;
  for (const Json& listed : json) {
    disagreements.push_back(
        {listed.at(0).get<DisagreementKind>(), PlaceOf(listed.at(1)), PlaceOf(listed.at(2))});
  }
  return disagreements;
}

}  // namespace quorvex::tools
