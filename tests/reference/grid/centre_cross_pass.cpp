#include "tests/reference/grid.h"

#include <cstddef>

#include "base/rounding.h"
#include "grid/line_growing.h"
#include "grid/outlier_rejection.h"
#include "grid/point_order.h"
#include "tests/reference/crossmark.h"

namespace quorvex::plain {

bool BuildGridFromCentreCross(const unsigned char* image, int width, int height, int rowSpan, int,
                              int rowSteps, const PixelSpanList& rowSpans,
                              const PixelSpanList& columnSpans, PointList& output) {
  constexpr int kCentreSearchSize = 500;        // pixels
  constexpr float kRejectionTolerance = 10.0f;  // pixels
  LineSegment firstLine;
  LineSegment secondLine;
  PointF centre;
  if (plain::LocateCrossMark(image, width, height, width / 2, height / 2, kCentreSearchSize,
                             firstLine, secondLine, centre) == 0) {
    return false;
  }

  PointList centreRow;
  plain::TraceRow(image, width, height, TruncateToInt(centre.x), TruncateToInt(centre.y), rowSteps,
                  rowSpans, columnSpans, 0, centreRow);
  QuadraticCoefficients seedCurve;
  RejectRowOutliers(centreRow, kRejectionTolerance, seedCurve);
  plain::SortPointsByX(centreRow);
  if (centreRow.size() < 2) {
    return false;
  }

  // A cross whose column finds nothing still uses up its label.
  PointList points;
  for (std::size_t i = 0; i < centreRow.size(); ++i) {
    PointList column;
    plain::TraceColumn(image, width, height, TruncateToInt(centreRow[i].x),
                       TruncateToInt(centreRow[i].y), 0, rowSpans, columnSpans, static_cast<int>(i),
                       column);
    QuadraticCoefficients unusedCurve;
    RejectColumnOutliers(column, kRejectionTolerance, unusedCurve);
    plain::SortPointsByY(column, kDescending);
    points.insert(points.end(), column.begin(), column.end());
  }

  PointList grid;
  plain::GrowRows(points, rowSpan, 0, seedCurve, grid);
  output.insert(output.end(), grid.begin(), grid.end());
  return !grid.empty();
}

}  // namespace quorvex::plain
