#include "tools/detect/detection_result.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "tools/detect/direct_findings_json.h"
#include "tools/system/file_name.h"
#include "tools/system/private_directory.h"

namespace quorvex::tools {
namespace {

using Json = nlohmann::json;

}  // namespace

// The image's name stays behind: it need not be UTF-8, and the command knows it anyway.
void WriteDetectionResult(const DetectionResult& result, const std::filesystem::path& path) {
  Json points = Json::array();
  for (const ListedPoint& p : result.found.points) {
    points.push_back({p.id, p.row, p.col, p.x, p.y, p.kind});
  }
  Json pictures = Json::array();
  for (const ReportedImage& picture : result.stagePictures) {
    pictures.push_back({picture.name, picture.dataUri});
  }
  const Json json{{"exitCode", result.exitCode},
                  {"message", result.message},
                  {"warning", result.warning},
                  {"width", result.found.width},
                  {"height", result.found.height},
                  {"points", std::move(points)},
                  {"notes", result.notes},
                  {"direct", ToJson(result.direct)},
                  {"disagreements", ToJson(result.disagreements)},
                  {"stagePictures", std::move(pictures)}};
  std::ofstream file(path);
  file << json.dump(-1, ' ', false, Json::error_handler_t::replace) << std::flush;
  if (!file) {
    throw std::runtime_error("the result of a worker cannot be written");
  }
}

DetectionResult ReadDetectionResult(const std::filesystem::path& path) {
  try {
    std::ifstream file(path);
    const Json json = Json::parse(file);
    DetectionResult result;
    result.exitCode = json.at("exitCode");
    result.message = json.at("message");
    result.warning = json.at("warning");
    result.notes = json.at("notes").get<std::vector<std::string>>();
    result.direct = DirectFindingsOf(json.at("direct"));
    result.disagreements = DisagreementsOf(json.at("disagreements"));
    for (const Json& picture : json.at("stagePictures")) {
      result.stagePictures.push_back({picture.at(0), picture.at(1)});
    }
    result.found.width = json.at("width");
    result.found.height = json.at("height");
    for (const Json& p : json.at("points")) {
      result.found.points.push_back({p.at(0), p.at(1), p.at(2), p.at(3), p.at(4), p.at(5)});
    }
    return result;
  } catch (const Json::exception&) {
    const std::filesystem::path folder = path.parent_path();
    const std::string shortage = DescribeShortage(folder);
    throw std::runtime_error(
        shortage.empty() ? fmt::format("the detection could not leave its result in {}, in the "
                                       "folder for temporary files",
                                       Utf8Name(folder))
                         : shortage);
  }
}

}  // namespace quorvex::tools
