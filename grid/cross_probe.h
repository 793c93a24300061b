// The probe that estimates where the next cross mark along a stroke lies.
#ifndef QUORVEX_GRID_CROSS_PROBE_H_
#define QUORVEX_GRID_CROSS_PROBE_H_

#include "base/pixel_span.h"
#include "crossmark/line_segment.h"

namespace quorvex {

// The direction of a walk. Modes along a row stay within the row's span of the target, modes along
// a column within the column's.
enum ProbeMode : int {
  kProbeRight = 1,
  kProbeLeft = 2,
  kProbeDown = 3,  // towards larger y
  kProbeUp = 4,
};

// Walks from `start` in steps of the unit direction (dx, dy), one pixel each and `steps` at the
// most, counts the stroke pixels (255) across the direction at every step and sets `next` to the
// first place, at least about 121 steps away, where they gather. False when there is none before
// the walk comes within 50 pixels of the target's border. The image is width * height bytes; there
// is one row span for each image row and one column span for each image column.
bool ProbeNextCross(const unsigned char* image, int width, int height, PointF start, ProbeMode mode,
                    float dx, float dy, int steps, const PixelSpanList& rowSpans,
                    const PixelSpanList& columnSpans, PointF& next);

}  // namespace quorvex

#endif  // QUORVEX_GRID_CROSS_PROBE_H_
