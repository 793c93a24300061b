// A home for memory that the library hands out for the life of the process, so that a leak checker
// finds it in use.
#ifndef QUORVEX_TESTS_SUPPORT_KEPT_MEMORY_H_
#define QUORVEX_TESTS_SUPPORT_KEPT_MEMORY_H_

#include <vector>

namespace quorvex::tests {

inline void KeepForever(const unsigned char* memory) {
  // Never destroyed: leaks are counted after the destructors of statics have run.
  static auto& kept = *new std::vector<const unsigned char*>;
  kept.push_back(memory);
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_KEPT_MEMORY_H_
