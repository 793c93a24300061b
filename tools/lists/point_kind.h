// Where a point of a list comes from, and the words for it in files.
#ifndef QUORVEX_TOOLS_LISTS_POINT_KIND_H_
#define QUORVEX_TOOLS_LISTS_POINT_KIND_H_

#include <optional>
#include <string>

namespace quorvex::tools {

enum class PointKind {
  kUnknown,  // the file does not tell
  kSeen,     // its mark is in the picture, or a person put the point there
  kFilled,   // no mark was seen; the place follows from the points around it

  // Of the direct detection:
  kMeasured,   // on the mark itself
  kDoubtful,   // on the mark, but on little of it or away from where the others expect it
  kPredicted,  // no mark was seen; the place follows from the fitted camera
};

// The kind of a row that stands for a picture without points.
constexpr const char* kFailedKind = "failed";

// "seen", "filled", "measured", "doubtful", "predicted", or empty for unknown.
const char* KindName(PointKind kind);

// Whether the place was computed from other points, not found on a mark.
bool IsComputed(PointKind kind);

// The words of all kinds, for messages.
constexpr const char* kKindNames = "seen, filled, measured, doubtful, predicted";

// The inverse; nothing for any other word.
std::optional<PointKind> KindNamed(const std::string& name);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_POINT_KIND_H_
