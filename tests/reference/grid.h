// The plain, literal forms of the stages that walk over the grid; see tests/reference/preprocess.h
// for what holds for all plain forms.
#ifndef QUORVEX_TESTS_REFERENCE_GRID_H_
#define QUORVEX_TESTS_REFERENCE_GRID_H_

#include "base/calibration_point.h"
#include "base/pixel_span.h"
#include "crossmark/line_segment.h"
#include "grid/curve_fit.h"

namespace quorvex::plain {

void SortPointsByX(PointList& points);
void SortPointsByY(PointList& points, int direction);

bool ProbeNextCross(const unsigned char* image, int width, int height, PointF start, int mode,
                    float dx, float dy, int steps, const PixelSpanList& rowSpans,
                    const PixelSpanList& columnSpans, PointF& next);

bool TraceRow(const unsigned char* image, int width, int height, int x, int y, int rowSteps,
              const PixelSpanList& rowSpans, const PixelSpanList& columnSpans, int label,
              PointList& output);
bool TraceColumn(const unsigned char* image, int width, int height, int x, int y, int unused,
                 const PixelSpanList& rowSpans, const PixelSpanList& columnSpans, int label,
                 PointList& output);

bool GrowRows(const PointList& input, int rowSpan, int unused, const QuadraticCoefficients& seed,
              PointList& output);
bool GrowColumns(const PointList& input, int unused, int columnSpan,
                 const QuadraticCoefficients& seed, PointList& output);

bool BuildGridFromCentreCross(const unsigned char* image, int width, int height, int rowSpan,
                              int reserved, int rowSteps, const PixelSpanList& rowSpans,
                              const PixelSpanList& columnSpans, PointList& output);

bool TraceRowsFromSeeds(const unsigned char* image, int width, int height, int unused,
                        int columnSpan, int rowSteps, PointList seeds, PixelSpanList rowSpans,
                        PixelSpanList columnSpans, PointList& output);

}  // namespace quorvex::plain

#endif  // QUORVEX_TESTS_REFERENCE_GRID_H_
