// Tells which blocks along a stroke show it, and which of its two arms are seen by them.
#ifndef QUORVEX_PRECISE_ARM_JUDGEMENT_H_
#define QUORVEX_PRECISE_ARM_JUDGEMENT_H_

#include <array>
#include <vector>

#include "precise/block_fit.h"

namespace quorvex::precise {

struct ArmFit {
  bool isSeen = false;
  double contrast = 0.0;  // grey levels, mean against the weaker side
  double seenPart = 0.0;  // of its blocks, those outside the picture included
  double lastSeen = 0.0;  // px, how far out the farthest block of it lies
};

// What the blocks of a stroke are expected to show.
struct StrokeLook {
  double darkness = 0.0;  // grey levels, of the full stroke
  double peak = 1.0;      // part of it that is left in the middle of the blurred stroke
  double noise = 1.0;     // grey levels
  bool isNear = false;    // the line is near the stroke already, so that residuals count
};

// The median darkness of a stroke's blocks, grey levels; 0 where none shows a stroke.
double TypicalDarkness(const std::vector<Block>& blocks);

// Leaves out the blocks that are no part of the stroke and those of arms that are not seen.
// spans: where blocks were looked for, by arm.
std::array<ArmFit, 2> JudgeArms(const StrokeLook& look, const std::array<ArmSpan, 2>& spans,
                                std::vector<Block>& blocks);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_ARM_JUDGEMENT_H_
