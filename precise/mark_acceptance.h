// Whether what was fitted at a predicted place is a mark.
#ifndef QUORVEX_PRECISE_MARK_ACCEPTANCE_H_
#define QUORVEX_PRECISE_MARK_ACCEPTANCE_H_

#include "precise/gray_picture.h"
#include "precise/mark_fit.h"

namespace quorvex::precise {

struct Expectation {
  double darkness = 0.0;         // grey levels, of marks around
  double tolerance = 0.0;        // px, how far from the frame's centre a mark may lie
  bool isWellPredicted = false;  // by a whole board: one arm of each stroke is enough
};

// Both strokes must be seen with the darkness of their neighbours and in the predicted directions,
// and three arms, or all arms that the picture holds, unless the place is well predicted. What lies
// beside the picture is no mark.
bool IsMark(const GrayPicture& picture, const MarkFrame& frame, const MarkFit& fit,
            const Expectation& expected);

// Which of the arms [stroke][arm] the picture holds to half their length.
std::array<std::array<bool, 2>, 2> ArmsInPicture(const GrayPicture& picture,
                                                 const MarkFrame& frame);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_MARK_ACCEPTANCE_H_
