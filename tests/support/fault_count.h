// The count behind FailNth, for the functions that stand in the system's place.
#ifndef QUORVEX_TESTS_SUPPORT_FAULT_COUNT_H_
#define QUORVEX_TESTS_SUPPORT_FAULT_COUNT_H_

#include "tests/support/faults.h"

namespace quorvex::tests {

// Counts one call of that kind and tells whether it is the one that has to fail.
bool IsCallToFail(Fault fault);

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_FAULT_COUNT_H_
