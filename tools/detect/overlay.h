// A picture with its detected points drawn over it, to be judged by eye.
#ifndef QUORVEX_TOOLS_DETECT_OVERLAY_H_
#define QUORVEX_TOOLS_DETECT_OVERLAY_H_

#include <vector>

#include "tools/lists/points_file.h"
#include "tools/pictures/picture.h"

namespace quorvex::tools {

// Neighbours along a row are joined in green, neighbours along a column in blue; a red ring with a
// cross in it stands around each position, and its id in yellow beside it. Around a position that
// was computed from others the ring is dashed and orange, and lines to it are dashed. A covariance
// is drawn in cyan as the ellipse of one standard deviation, a pixel for a thousandth of a pixel.
// Marks and labels grow with the picture. Points outside the picture are left out.
ColorPicture DrawOverlay(const Picture& picture, const std::vector<ListedPoint>& points);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_OVERLAY_H_
