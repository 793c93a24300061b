// How a target says that something is wrong, so that the engine keeps the input.
#ifndef QUORVEX_FUZZ_FAULT_H_
#define QUORVEX_FUZZ_FAULT_H_

#include <cstdio>
#include <cstdlib>
#include <string>

namespace quorvex::fuzz {

// Ends the process when `wrong`, what is wrong in words, is not empty.
inline void Require(const std::string& wrong) {
  if (!wrong.empty()) {
    std::fprintf(stderr, "fuzz: %s\n", wrong.c_str());
    std::abort();
  }
}

// The same when `holds` is false.
inline void Require(bool holds, const char* wrong) {
  if (!holds) {
    Require(wrong);
  }
}

}  // namespace quorvex::fuzz

#endif  // QUORVEX_FUZZ_FAULT_H_
