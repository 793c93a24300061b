// The grid half of detection: from the stroke image to the caller's list of points.
#ifndef QUORVEX_INTERFACE_RESULT_ASSEMBLY_H_
#define QUORVEX_INTERFACE_RESULT_ASSEMBLY_H_

#include "base/calibration_point.h"
#include "base/gray_image.h"
#include "base/pixel_span.h"

namespace quorvex {

// What the host knows of its target.
struct GridParameters {
  int rowSpan;     // rows beyond the centre row
  int columnSpan;  // columns beyond the seed column
  int rowSteps;    // pixels from one mark of a row to the next
};

// Finds the grid on the stroke image (strokes 255), numbers, completes and refines it on the input
// (a grey image of the same size) within the target's mask, and appends the points to the caller's
// list. What that list held before takes part from there on: in the order by id, the removal of
// points outside the image or within 3 pixels of an earlier one, and the turn of y. False, the list
// untouched, when the first grid pass finds no grid.
bool AssembleResult(const unsigned char* input, const GrayImage& strokes, const GrayImage& mask,
                    const PixelSpanList& rowSpans, const PixelSpanList& columnSpans,
                    const GridParameters& parameters, PointList& points);

}  // namespace quorvex

#endif  // QUORVEX_INTERFACE_RESULT_ASSEMBLY_H_
