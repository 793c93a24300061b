#include "grid/row_tracing_pass.h"

#include <utility>

#include "base/rounding.h"
#include "grid/line_growing.h"
#include "grid/line_tracing.h"
#include "grid/outlier_rejection.h"
#include "grid/point_order.h"

namespace quorvex {

bool TraceRowsFromSeeds(const unsigned char* image, int width, int height, int, int columnSpan,
                        int rowSteps, PointList seeds, const PixelSpanList& rowSpans,
                        const PixelSpanList& columnSpans, PointList& output) {
  MarkPictures pictures;
  CrossMarkSearch search({image, width, height}, pictures);
  return TraceRowsFromSeeds(search, columnSpan, rowSteps, std::move(seeds), rowSpans, columnSpans,
                            output);
}

bool TraceRowsFromSeeds(CrossMarkSearch& search, int columnSpan, int rowSteps, PointList seeds,
                        const PixelSpanList& rowSpans, const PixelSpanList& columnSpans,
                        PointList& output) {
  constexpr float kRejectionTolerance = 10.0f;  // pixels
  PointList points;
  for (const CalibrationPoint& seed : seeds) {
    PointList row;
    TraceRow(search, TruncateToInt(seed.x), TruncateToInt(seed.y), rowSteps, rowSpans, columnSpans,
             seed.row, row);
    QuadraticCoefficients unusedCurve;
    RejectRowOutliers(row, kRejectionTolerance, unusedCurve);
    SortPointsByX(row);
    points.insert(points.end(), row.begin(), row.end());
  }

  QuadraticCoefficients seedCurve;
  RejectColumnOutliers(seeds, kRejectionTolerance, seedCurve);
  PointList grid;
  GrowColumns(points, 0, columnSpan, seedCurve, grid);
  output.insert(output.end(), grid.begin(), grid.end());
  return !grid.empty();
}

}  // namespace quorvex
