// The first facts of a board, from the strongest marks of its seed.
#ifndef QUORVEX_PRECISE_SEED_FACTS_H_
#define QUORVEX_PRECISE_SEED_FACTS_H_

#include "precise/board_map.h"
#include "precise/gray_picture.h"
#include "precise/seed.h"

namespace quorvex::precise {

// `map` knows where the camera sees the seed's labels. False where no stroke can be measured.
bool MeasureSeedFacts(const GrayPicture& picture, const Seed& seed, const BoardMap& map,
                      BoardFacts& facts);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_SEED_FACTS_H_
