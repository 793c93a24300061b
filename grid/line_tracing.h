// Tracing of a row or a column of cross marks from one of them.
#ifndef QUORVEX_GRID_LINE_TRACING_H_
#define QUORVEX_GRID_LINE_TRACING_H_

#include "base/calibration_point.h"
#include "base/pixel_span.h"
#include "crossmark/cross_mark_search.h"

namespace quorvex {

// Finds the cross mark near (x, y) on a stroke image (width * height bytes, strokes 255) and
// follows its row to the right, then to the left, `rowSteps` pixels at the most from one mark to
// the next. Appends the marks in the order found, each with its position and `row` set to the
// label, every other field 0. When there is no mark at the start, nothing is traced. Always true.
bool TraceRow(const unsigned char* image, int width, int height, int x, int y, int rowSteps,
              const PixelSpanList& rowSpans, const PixelSpanList& columnSpans, int label,
              PointList& output);

// The twin: follows the column towards larger y, then towards smaller y, 500 pixels at the most
// from one mark to the next, and sets `col` to the label. The sixth parameter is ignored.
bool TraceColumn(const unsigned char* image, int width, int height, int x, int y, int unused,
                 const PixelSpanList& rowSpans, const PixelSpanList& columnSpans, int label,
                 PointList& output);

// The same for one line of many on the image of a search.
bool TraceRow(CrossMarkSearch& search, int x, int y, int rowSteps, const PixelSpanList& rowSpans,
              const PixelSpanList& columnSpans, int label, PointList& output);
bool TraceColumn(CrossMarkSearch& search, int x, int y, const PixelSpanList& rowSpans,
                 const PixelSpanList& columnSpans, int label, PointList& output);

}  // namespace quorvex

#endif  // QUORVEX_GRID_LINE_TRACING_H_
