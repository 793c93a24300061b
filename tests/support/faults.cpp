#include "tests/support/faults.h"

#include "tests/support/fault_count.h"

namespace quorvex::tests {
namespace {

// Calls that still succeed before the one that fails; below 0 when none is to fail.
int callsUntilFault[3] = {-1, -1, -1};
bool hasHappened[3] = {};

}  // namespace

bool IsCallToFail(Fault fault) {
  int& calls = callsUntilFault[static_cast<int>(fault)];
  if (calls < 0) {
    return false;
  }
  if (calls-- > 0) {
    return false;
  }
  hasHappened[static_cast<int>(fault)] = true;
  return true;
}

FailNth::FailNth(Fault fault, int n) : fault_(fault) {
  callsUntilFault[static_cast<int>(fault)] = n - 1;
  hasHappened[static_cast<int>(fault)] = false;
}

FailNth::~FailNth() { callsUntilFault[static_cast<int>(fault_)] = -1; }

bool FailNth::HasHappened() const { return hasHappened[static_cast<int>(fault_)]; }

}  // namespace quorvex::tests
