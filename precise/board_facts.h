// What all marks of a board share: the strokes' width in pitches, the blur, where the arms end.
//
// Board-wide: needs a map of the board, and measures some strong marks that are spread over it.
// Width and blur come from Gauss-Newton steps on the profiles across all their arms together, in
// which every block has its own background, slope, darkness and shift.
#ifndef QUORVEX_PRECISE_BOARD_FACTS_H_
#define QUORVEX_PRECISE_BOARD_FACTS_H_

#include <vector>

#include "precise/board_map.h"
#include "precise/gray_picture.h"

namespace quorvex::precise {

struct GridLabel {
  int row = 0;
  int column = 0;
};

// armEnd: what the arms' ends are taken for until they are measured, in pitches. noise: grey
// levels. False when no stroke is seen on the marks. facts.armEnd is 0.5 where the lines go on.
bool MeasureBoard(const GrayPicture& picture, const BoardMap& map,
                  const std::vector<GridLabel>& marks, double noise, double armEnd,
                  BoardFacts& facts);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_BOARD_FACTS_H_
