// Which points of a detection stand on a mark that is in the picture, and which were filled in
// where none was seen. The detection itself does not tell.
#ifndef QUORVEX_TOOLS_DETECT_POINT_JUDGE_H_
#define QUORVEX_TOOLS_DETECT_POINT_JUDGE_H_

#include "tools/lists/points_file.h"
#include "tools/pictures/picture.h"

namespace quorvex::tools {

// kSeen when two dark strokes cross in the picture within 2 pixels of the position, else kFilled.
// A position outside the picture is kFilled. Judged from the grey levels up to 18 pixels around it.
PointKind JudgePoint(const Picture& picture, double x, double y);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_POINT_JUDGE_H_
