// The last stage of detection: every point is moved to the exact crossing of its mark's strokes.
#ifndef QUORVEX_CROSSMARK_CROSS_REFINEMENT_H_
#define QUORVEX_CROSSMARK_CROSS_REFINEMENT_H_

#include "base/calibration_point.h"
#include "crossmark/mark_pictures.h"

namespace quorvex {

// Examines a 160 x 160 patch of the grey image around each point, in list order, as far as the
// target's mask is not 0, and moves the point's x and y to the crossing found there; a point
// without one keeps its position. Image and mask are width * height bytes. Always true. Leaves
// "./CrossMarkRegion.bmp", "./Sauvola.bmp", "./Thining.bmp" and the line pictures, each of the last
// point that had one.
bool RefineCrossMarks(const unsigned char* image, int width, int height, const unsigned char* mask,
                      PointList& points);

// The same with pictures that the caller writes.
bool RefineCrossMarks(const unsigned char* image, int width, int height, const unsigned char* mask,
                      PointList& points, MarkPictures& pictures);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_CROSS_REFINEMENT_H_
