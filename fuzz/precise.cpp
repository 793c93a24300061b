// The direct detector on one input: an image, options and points.
#include <cstddef>
#include <cstdint>

#include "fuzz/fault.h"
#include "fuzz/precise_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  quorvex::fuzz::Require(quorvex::fuzz::RunPreciseInput(bytes, size).wrong);
  return 0;
}
