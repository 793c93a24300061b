// Width and blur of a board's strokes from their profiles.
//
// All blocks of the strokes of one kind share two unknowns, the width in pitches and the blur; each
// block has four of its own (background, slope, darkness, darkness times shift), which are
// eliminated from its normal equations before these are summed.
#ifndef QUORVEX_PRECISE_PROFILE_STEPS_H_
#define QUORVEX_PRECISE_PROFILE_STEPS_H_

#include <vector>

#include "precise/block_fit.h"
#include "precise/gray_picture.h"

namespace quorvex::precise {

// A piece of a stroke, clear of the crossing.
struct ProfilePiece {
  StrokeLine line;
  double from = 0.0;   // px along the line
  double to = 0.0;     // px
  double pitch = 1.0;  // px across the stroke from one mark to the next
};

struct WidthAndBlur {
  double width = 0.0;  // pitches
  double sigma = 1.0;  // px
};

// The first values, from the darkness across the pieces alone; good to about a third. False where
// nothing is dark.
bool GuessProfile(const GrayPicture& picture, const std::vector<ProfilePiece>& pieces,
                  WidthAndBlur& profile);

// Improves both until they settle; false when the pieces tell nothing.
bool FitProfile(const GrayPicture& picture, const std::vector<ProfilePiece>& pieces,
                WidthAndBlur& profile);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_PROFILE_STEPS_H_
