// Where the camera that the direct detection fitted to a picture sees the places of the board.
#ifndef QUORVEX_TOOLS_REPORT_CAMERA_CURVES_H_
#define QUORVEX_TOOLS_REPORT_CAMERA_CURVES_H_

#include <vector>

#include "interface/quorvex_precise.h"
#include "tools/report/reported_picture.h"

namespace quorvex::tools {

// The place of a row and a column, which need not be whole: a radial camera (Kannala and Brandt,
// 2006) with three coefficients, as quorvex_precise.h states it.
PicturePlace SeenAt(const precise::CameraFacts& camera, double row, double column);

// One curve for each row, or column, of the marks, from its first mark to its last.
std::vector<Curve> RowCurves(const precise::CameraFacts& camera,
                             const std::vector<precise::Mark>& marks);
std::vector<Curve> ColumnCurves(const precise::CameraFacts& camera,
                                const std::vector<precise::Mark>& marks);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_REPORT_CAMERA_CURVES_H_
