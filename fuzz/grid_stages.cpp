// The stages of grid/.
#include <cstddef>
#include <cstdint>

#include "fuzz/run_case.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  quorvex::fuzz::RunCase(bytes, size);
  return 0;
}
