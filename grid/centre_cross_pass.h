// The first grid pass: the grid as seen from the cross mark at the image centre.
#ifndef QUORVEX_GRID_CENTRE_CROSS_PASS_H_
#define QUORVEX_GRID_CENTRE_CROSS_PASS_H_

#include "base/calibration_point.h"
#include "base/pixel_span.h"
#include "crossmark/cross_mark_search.h"

namespace quorvex {

// Traces the row through the cross nearest the centre of the stroke image (width * height bytes,
// strokes 255), a column through every cross of that row, and appends the points, labelled with row
// and column, to `output`. `rowSpan` bounds the rows beyond the centre row, `rowSteps` is the
// largest distance of two marks of the centre row in pixels; `reserved` is ignored. False, the
// output as it was, without a centre cross, with fewer than two crosses in its row, or without a
// labelled point.
bool BuildGridFromCentreCross(const unsigned char* image, int width, int height, int rowSpan,
                              int reserved, int rowSteps, const PixelSpanList& rowSpans,
                              const PixelSpanList& columnSpans, PointList& output);

// The same on the image of a search that later stages go on with.
bool BuildGridFromCentreCross(CrossMarkSearch& search, int rowSpan, int rowSteps,
                              const PixelSpanList& rowSpans, const PixelSpanList& columnSpans,
                              PointList& output);

}  // namespace quorvex

#endif  // QUORVEX_GRID_CENTRE_CROSS_PASS_H_
