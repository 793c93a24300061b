// Whether labels are right: by the arms of the marks, and by what their neighbours predict.
#ifndef QUORVEX_PRECISE_LABEL_CHECK_H_
#define QUORVEX_PRECISE_LABEL_CHECK_H_

#include <vector>

#include "precise/board_cells.h"
#include "precise/label_map.h"
#include "precise/mark_candidate.h"

namespace quorvex::precise {

// Whether the nearest labelled marks are as many steps away as the labels say, a step measured by
// the arms of both and the ratio of a step to them (MarkLinks). False when no mark is near.
bool AreStepsRight(const std::vector<MarkCandidate>& marks, double stepRatio, const LabelMap& map,
                   const LabelledMark& mark);

// Takes marks off that neither their neighbours predict nor the arms support, the worst first. Of a
// board with many of them nothing is left.
void DropUnpredictedMarks(const std::vector<MarkCandidate>& marks, double stepRatio,
                          std::vector<LabelledMark>& labelled);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_LABEL_CHECK_H_
