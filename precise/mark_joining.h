// Adds marks to a labelled component that no closed cell holds: where its neighbours predict one,
// and the candidate there has arms as its neighbours have.
#ifndef QUORVEX_PRECISE_MARK_JOINING_H_
#define QUORVEX_PRECISE_MARK_JOINING_H_

#include <vector>

#include "precise/board_cells.h"
#include "precise/mark_candidate.h"
#include "precise/mark_links.h"

namespace quorvex::precise {

// `labelled` grows until nothing joins any more. The marks lie in a picture of `width` by `height`
// px. A link alone is no reason to join: two links must agree, or a link with a prediction, or
// predictions with one another.
void JoinPredictedMarks(const std::vector<MarkCandidate>& marks, const MarkLinks& links, int width,
                        int height, std::vector<LabelledMark>& labelled);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_MARK_JOINING_H_
