#include "tools/lists/point_kind.h"

namespace quorvex::tools {

const char* KindName(PointKind kind) {
  switch (kind) {
    case PointKind::kSeen:
      return "seen";
    case PointKind::kFilled:
      return "filled";
    case PointKind::kUnknown:
      break;
  }
  return "";
}

std::optional<PointKind> KindNamed(const std::string& name) {
  for (const PointKind kind : {PointKind::kUnknown, PointKind::kSeen, PointKind::kFilled}) {
    if (name == KindName(kind)) {
      return kind;
    }
  }
  return std::nullopt;
}

}  // namespace quorvex::tools
