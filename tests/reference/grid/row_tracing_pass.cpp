#include "tests/reference/grid.h"

#include "base/rounding.h"
#include "grid/line_growing.h"
#include "grid/outlier_rejection.h"

namespace quorvex::plain {

bool TraceRowsFromSeeds(const unsigned char* image, int width, int height, int, int columnSpan,
                        int rowSteps, PointList seeds, PixelSpanList rowSpans,
                        PixelSpanList columnSpans, PointList& output) {
  constexpr float kRejectionTolerance = 10.0f;  // pixels
  PointList points;
  for (const CalibrationPoint& seed : seeds) {
    PointList row;
    plain::TraceRow(image, width, height, TruncateToInt(seed.x), TruncateToInt(seed.y), rowSteps,
                    rowSpans, columnSpans, seed.row, row);
    QuadraticCoefficients unusedCurve;
    RejectRowOutliers(row, kRejectionTolerance, unusedCurve);
    plain::SortPointsByX(row);
    points.insert(points.end(), row.begin(), row.end());
  }

  QuadraticCoefficients seedCurve;
  RejectColumnOutliers(seeds, kRejectionTolerance, seedCurve);
  PointList grid;
  plain::GrowColumns(points, 0, columnSpan, seedCurve, grid);
  output.insert(output.end(), grid.begin(), grid.end());
  return !grid.empty();
}

}  // namespace quorvex::plain
