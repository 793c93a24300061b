// Pictures for the direct detector that the bytes of a fuzzing engine steer: the bytes themselves,
// or boards of crosses with faults, strokes and noise, which lead far into the detection.
#ifndef QUORVEX_FUZZ_STEERED_PICTURE_H_
#define QUORVEX_FUZZ_STEERED_PICTURE_H_

#include <vector>

#include "fuzz/input_bytes.h"
#include "interface/quorvex_precise.h"

namespace quorvex::fuzz {

// An image of 16 to 800 px a side, mostly no more than 200, and the memory that it reaches, without
// a byte more.
struct SteeredPicture {
  std::vector<unsigned char> bytes;
  precise::ImageView view;
  std::vector<precise::Point> places;  // near which marks were drawn
};

SteeredPicture MakePicture(InputBytes& input);

// An image that no detector can read: without pixels, too small, or with too short a stride.
SteeredPicture MakeWrongPicture(InputBytes& input);

}  // namespace quorvex::fuzz

#endif  // QUORVEX_FUZZ_STEERED_PICTURE_H_
