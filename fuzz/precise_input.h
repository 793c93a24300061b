// One input of a fuzzing engine to the direct detector: an image, options and points from its
// bytes, through Detect and RefineMarks.
#ifndef QUORVEX_FUZZ_PRECISE_INPUT_H_
#define QUORVEX_FUZZ_PRECISE_INPUT_H_

#include <cstddef>
#include <cstdint>
#include <string>

#include "interface/quorvex_precise.h"

namespace quorvex::fuzz {

struct PreciseOutcome {
  std::string wrong;  // in words; empty when all is as it should be
  precise::Result result;
  int refined = 0;  // points
};

PreciseOutcome RunPreciseInput(const std::uint8_t* bytes, std::size_t size);

}  // namespace quorvex::fuzz

#endif  // QUORVEX_FUZZ_PRECISE_INPUT_H_
