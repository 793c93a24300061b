// Pictures of boards as a fisheye camera sees them, with faults.
#ifndef QUORVEX_FUZZ_BENT_BOARD_H_
#define QUORVEX_FUZZ_BENT_BOARD_H_

#include "tests/support/random_image.h"

namespace quorvex::fuzz {

// 200 to 800 px a side, both multiples of 4: a light target in the dark with dark marks, turned and
// bent; marks may be missing, shifted, paler or lack an arm, and strokes, boxes and noise be added.
tests::TestImage RandomBentBoard(tests::CaseRandom& random);

}  // namespace quorvex::fuzz

#endif  // QUORVEX_FUZZ_BENT_BOARD_H_
