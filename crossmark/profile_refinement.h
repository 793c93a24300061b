// Re-fitting of a stroke's line to the darkest grey pixels across the stroke.
#ifndef QUORVEX_CROSSMARK_PROFILE_REFINEMENT_H_
#define QUORVEX_CROSSMARK_PROFILE_REFINEMENT_H_

#include "crossmark/line_segment.h"

namespace quorvex {

// Looks across the line at 100 stations along it, one pixel apart around (x, y), takes the darkest
// of 20 samples of the 160 x 160 grey patch at each and replaces a, b and c by the line fitted
// through them; the other fields stay. With fewer than two such points the line keeps its
// coefficients. Always true.
bool RefineLineByProfile(const unsigned char* patch, float x, float y, LineSegment& line);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_PROFILE_REFINEMENT_H_
