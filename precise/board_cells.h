// Labels for marks that links join: rows and columns, spread from cell to cell.
//
// Only links that close a cell (four of them round it, turning the same way at each corner) carry
// labels, since a single link may be wrong. A component whose cells contradict one another has no
// labels.
#ifndef QUORVEX_PRECISE_BOARD_CELLS_H_
#define QUORVEX_PRECISE_BOARD_CELLS_H_

#include <vector>

#include "precise/mark_candidate.h"
#include "precise/mark_links.h"

namespace quorvex::precise {

struct LabelledMark {
  int mark = kNoMark;  // index of the candidate
  int row = 0;
  int column = 0;
  int turn = 0;  // arm k of the candidate points along direction (k + turn) % 4:
                 // +column, +row, -column, -row
};

// The steps of a label along each direction.
constexpr int kRowStep[4] = {0, 1, 0, -1};
constexpr int kColumnStep[4] = {1, 0, -1, 0};

// The label of what an arm of a labelled mark is linked to.
LabelledMark LabelBeyond(const LabelledMark& from, int arm, const ArmLink& link);

// The labelled marks of the largest component; empty when no component has a cell.
std::vector<LabelledMark> LabelLargestComponent(const std::vector<MarkCandidate>& marks,
                                                const MarkLinks& links);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_BOARD_CELLS_H_
