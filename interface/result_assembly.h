// The grid half of detection: from the stroke image to the caller's list of points.
#ifndef QUORVEX_INTERFACE_RESULT_ASSEMBLY_H_
#define QUORVEX_INTERFACE_RESULT_ASSEMBLY_H_

#include "base/calibration_point.h"
#include "interface/stroke_image.h"

namespace quorvex {

// What the host knows of its target.
struct GridParameters {
  int rowSpan;     // rows beyond the centre row
  int columnSpan;  // columns beyond the seed column
  int rowSteps;    // pixels from one mark of a row to the next
};

// Finds the grid on the stroke image, numbers, completes and refines it on the input (the grey
// image that the stroke image was made of) within the target's mask, and appends the points to the
// caller's list. What that list held before takes part from there on: in the order by id, the
// removal of points outside the image or within 3 pixels of an earlier one, and the turn of y.
// False, the list untouched, when the first grid pass finds no grid.
bool AssembleResult(const unsigned char* input, const StrokeImage& image,
                    const GridParameters& parameters, PointList& points);

}  // namespace quorvex

#endif  // QUORVEX_INTERFACE_RESULT_ASSEMBLY_H_
