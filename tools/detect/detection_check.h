// What the direct detection says of a list of points: the other detection may end in success with
// wrong labels or without some of the marks.
#ifndef QUORVEX_TOOLS_DETECT_DETECTION_CHECK_H_
#define QUORVEX_TOOLS_DETECT_DETECTION_CHECK_H_

#include <string>
#include <vector>

#include "interface/quorvex_precise.h"
#include "tools/lists/disagreement.h"
#include "tools/lists/listed_points.h"

namespace quorvex::tools {

struct DetectionCheck {
  int compared = 0;     // points of the list with a measured mark beside them
  int otherLabels = 0;  // of these: row or column is not that of the mark
  int lost = 0;         // measured marks without a point
  int off = 0;          // points more than a pixel from their mark
  // Those that are counted, by the marks' order. Labels of marks are those that the points should
  // have.
  std::vector<Disagreement> disagreements = {};
};

// The point within reach of a place, or nothing. A quarter of the pitch, so that no point belongs
// to two marks.
const ListedPoint* PointAt(const std::vector<ListedPoint>& points, const precise::Mark& mark,
                           double pitch);

// Compares points with measured marks. A point belongs to the mark within a quarter of the pitch;
// labels may differ by one step that is the same for all, since both count from what they found.
DetectionCheck CheckPoints(const std::vector<ListedPoint>& points,
                           const std::vector<precise::Mark>& marks, double pitch);

// One sentence, or nothing when all agrees.
std::string DescribeCheck(const DetectionCheck& check);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_DETECTION_CHECK_H_
