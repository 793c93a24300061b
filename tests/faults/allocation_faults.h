// One call after the other with one allocation that fails, from the first to the last of them.
#ifndef QUORVEX_TESTS_FAULTS_ALLOCATION_FAULTS_H_
#define QUORVEX_TESTS_FAULTS_ALLOCATION_FAULTS_H_

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "tests/faults/failing_memory.h"
#include "tests/faults/open_files.h"

namespace quorvex::tests {

struct FaultedCall {
  Asked failed = Asked::kNothing;
  bool threw = false;  // std::bad_alloc
};

template <typename Call>
FaultedCall CallWithFault(int n, const Call& call) {
  FaultedCall result;
  const FailNthAllocation fault(n);
  try {
    call();
  } catch (const std::bad_alloc&) {
    result.threw = true;
  }
  result.failed = fault.Failed();
  return result;
}

// How far the tests go from one allocation to the next of `count`: all of them where the variable
// QUORVEX_ALLOCATION_STEP is 1, else about `samples`.
inline int AllocationStep(int count, int samples) {
  const char* const given = std::getenv("QUORVEX_ALLOCATION_STEP");
  if (given == nullptr) {
    return std::max(count / samples, 1);
  }
  std::printf("%d allocations\n", count);
  return std::max(std::atoi(given), 1);
}

// Calls `check(n)` for as many n as asked, up to the number of allocations of `call`, and holds
// each to leaving nothing behind. The first ones, of which each is a case of its own, are all
// taken.
template <typename Call, typename Check>
void ForFaults(int samples, const Call& call, const Check& check) {
  constexpr int kAlwaysTaken = 12;
  call();  // what is made once is there now
  const int before = AllocationCount();
  call();
  const int count = AllocationCount() - before;
  ASSERT_GT(count, 0);
  const int step = AllocationStep(count, samples);
  for (int n = 1; n <= count; n += n < kAlwaysTaken ? 1 : step) {
    SCOPED_TRACE(testing::Message() << "allocation " << n << " of " << count);
    const int held = HeldBlocks();
    const int files = OpenFileCount();
    check(n);
    ASSERT_EQ(OpenFileCount(), files);
    ASSERT_EQ(HeldBlocks(), held);
    if (testing::Test::HasFailure()) {
      return;
    }
  }
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_FAULTS_ALLOCATION_FAULTS_H_
