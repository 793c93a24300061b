// The second grid pass: a row traced from every seed point.
#ifndef QUORVEX_GRID_ROW_TRACING_PASS_H_
#define QUORVEX_GRID_ROW_TRACING_PASS_H_

#include "base/calibration_point.h"
#include "base/pixel_span.h"
#include "crossmark/cross_mark_search.h"

namespace quorvex {

// Traces the row through every seed, which carries its row number, numbers the columns of all
// traced points from the curve through the seeds, and appends the points to `output`. `columnSpan`
// bounds the columns beyond the seeds', `rowSteps` is the largest distance of two marks of a row in
// pixels; `unused` is ignored. False, the output as it was, when no point received a column.
bool TraceRowsFromSeeds(const unsigned char* image, int width, int height, int unused,
                        int columnSpan, int rowSteps, PointList seeds,
                        const PixelSpanList& rowSpans, const PixelSpanList& columnSpans,
                        PointList& output);

// The same on the image of a search.
bool TraceRowsFromSeeds(CrossMarkSearch& search, int columnSpan, int rowSteps, PointList seeds,
                        const PixelSpanList& rowSpans, const PixelSpanList& columnSpans,
                        PointList& output);

}  // namespace quorvex

#endif  // QUORVEX_GRID_ROW_TRACING_PASS_H_
