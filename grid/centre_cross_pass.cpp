#include "grid/centre_cross_pass.h"

#include <cstddef>

#include "base/rounding.h"
#include "crossmark/cross_mark_search.h"
#include "grid/line_growing.h"
#include "grid/line_tracing.h"
#include "grid/outlier_rejection.h"
#include "grid/point_order.h"

namespace quorvex {

bool BuildGridFromCentreCross(const unsigned char* image, int width, int height, int rowSpan, int,
                              int rowSteps, const PixelSpanList& rowSpans,
                              const PixelSpanList& columnSpans, PointList& output) {
  MarkPictures pictures;
  CrossMarkSearch search({image, width, height}, pictures);
  return BuildGridFromCentreCross(search, rowSpan, rowSteps, rowSpans, columnSpans, output);
}

bool BuildGridFromCentreCross(CrossMarkSearch& search, int rowSpan, int rowSteps,
                              const PixelSpanList& rowSpans, const PixelSpanList& columnSpans,
                              PointList& output) {
  constexpr int kCentreSearchSize = 500;        // pixels
  constexpr float kRejectionTolerance = 10.0f;  // pixels
  const CrossMark* centre =
      search.Locate(search.Image().width / 2, search.Image().height / 2, kCentreSearchSize);
  if (centre == nullptr) {
    return false;
  }

  PointList centreRow;
  TraceRow(search, TruncateToInt(centre->centre.x), TruncateToInt(centre->centre.y), rowSteps,
           rowSpans, columnSpans, 0, centreRow);
  QuadraticCoefficients seedCurve;
  RejectRowOutliers(centreRow, kRejectionTolerance, seedCurve);
  SortPointsByX(centreRow);
  if (centreRow.size() < 2) {
    return false;
  }

  // A cross whose column finds nothing still uses up its label.
  PointList points;
  for (std::size_t i = 0; i < centreRow.size(); ++i) {
    PointList column;
    TraceColumn(search, TruncateToInt(centreRow[i].x), TruncateToInt(centreRow[i].y), rowSpans,
                columnSpans, static_cast<int>(i), column);
    QuadraticCoefficients unusedCurve;
    RejectColumnOutliers(column, kRejectionTolerance, unusedCurve);
    SortPointsByY(column, kDescending);
    points.insert(points.end(), column.begin(), column.end());
  }

  PointList grid;
  GrowRows(points, rowSpan, 0, seedCurve, grid);
  output.insert(output.end(), grid.begin(), grid.end());
  return !grid.empty();
}

}  // namespace quorvex
