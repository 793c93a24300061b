// All places of a picture where strokes cross as those of a mark, at any of the pyramid's sizes.
//
// Peaks of the half size are tested first, where that fails at full size (short arms); peaks of the
// quarter size find thick strokes. The middle is moved onto the crossing of the arms and tested
// again, since an oblique crossing has its peaks beside its middle. Then the arms are followed to
// their ends.
#ifndef QUORVEX_PRECISE_MARK_CANDIDATES_H_
#define QUORVEX_PRECISE_MARK_CANDIDATES_H_

#include <vector>

#include "precise/mark_candidate.h"
#include "precise/pyramid.h"

namespace quorvex::precise {

// `noise` in grey levels. No two candidates are closer than 4 px. With fewer than four arms they
// are weak: three anywhere, two (one of either stroke) where the frame hides the others.
// Where `stopsAtLines`, the search ends when there are hundreds whose arms run through to the next
// stroke: that is paper with lines.
std::vector<MarkCandidate> FindMarkCandidates(const Pyramid& pyramid, double noise,
                                              bool stopsAtLines = true);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_MARK_CANDIDATES_H_
