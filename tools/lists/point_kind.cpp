#include "tools/lists/point_kind.h"

namespace quorvex::tools {

const char* KindName(PointKind kind) {
  switch (kind) {
    case PointKind::kSeen:
      return "seen";
    case PointKind::kFilled:
      return "filled";
    case PointKind::kMeasured:
      return "measured";
    case PointKind::kDoubtful:
      return "doubtful";
    case PointKind::kPredicted:
      return "predicted";
    case PointKind::kUnknown:
      break;
  }
  return "";
}

std::optional<PointKind> KindNamed(const std::string& name) {
  for (const PointKind kind : {PointKind::kUnknown, PointKind::kSeen, PointKind::kFilled,
                               PointKind::kMeasured, PointKind::kDoubtful, PointKind::kPredicted}) {
    if (name == KindName(kind)) {
      return kind;
    }
  }
  return std::nullopt;
}

bool IsComputed(PointKind kind) {
  return kind == PointKind::kFilled || kind == PointKind::kPredicted;
}

}  // namespace quorvex::tools
