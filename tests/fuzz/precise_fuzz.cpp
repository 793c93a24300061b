// The direct detector as libFuzzer calls it; the engine has the main function.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "tests/fuzz/precise_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const quorvex::tests::PreciseOutcome outcome = quorvex::tests::RunPreciseInput(bytes, size);
  if (!outcome.wrong.empty()) {
    std::fprintf(stderr, "precise_fuzz: %s\n", outcome.wrong.c_str());
    std::abort();
  }
  return 0;
}
