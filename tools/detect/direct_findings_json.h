// What the direct detection found, as JSON: a worker tells it to the command.
#ifndef QUORVEX_TOOLS_DETECT_DIRECT_FINDINGS_JSON_H_
#define QUORVEX_TOOLS_DETECT_DIRECT_FINDINGS_JSON_H_

#include <nlohmann/json.hpp>
#include <vector>

#include "tools/detect/detection_result.h"

namespace quorvex::tools {

nlohmann::json ToJson(const DirectFindings& findings);
nlohmann::json ToJson(const std::vector<Disagreement>& disagreements);

// The inverse; throw nlohmann::json::exception for anything else.
DirectFindings DirectFindingsOf(const nlohmann::json& json);
std::vector<Disagreement> DisagreementsOf(const nlohmann::json& json);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_DIRECT_FINDINGS_JSON_H_
