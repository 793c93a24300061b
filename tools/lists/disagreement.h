// Where a list of points and the marks of the direct detection do not agree.
#ifndef QUORVEX_TOOLS_LISTS_DISAGREEMENT_H_
#define QUORVEX_TOOLS_LISTS_DISAGREEMENT_H_

#include <optional>

#include "tools/lists/listed_points.h"

namespace quorvex::tools {

enum class DisagreementKind {
  kLabel,  // row or column is another
  kLost,   // a mark without a point
  kOff,    // the point lies more than a pixel from its mark
  kExtra,  // a point that was seen where there is no mark
};

// What one of the two places is; a mark's id is not told.
struct Disagreement {
  DisagreementKind kind = DisagreementKind::kLost;
  std::optional<ListedPoint> mark;    // nothing for kExtra
  std::optional<ListedPoint> listed;  // nothing for kLost
};

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_DISAGREEMENT_H_
