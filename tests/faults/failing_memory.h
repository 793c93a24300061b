// Memory that ends on demand, and a count of what is held of it. A program that links this has
// operators new and delete of its own, and its calls of malloc and its kin, which the platform's
// heaps and Eigen make, are led here by the linker.
#ifndef QUORVEX_TESTS_FAULTS_FAILING_MEMORY_H_
#define QUORVEX_TESTS_FAULTS_FAILING_MEMORY_H_

namespace quorvex::tests {

// What an allocation asked, and so who has to deal with its failure.
enum class Asked { kNothing, kNew, kNewThatDoesNotThrow, kMalloc };

// Lets the n-th allocation (from 1), of any kind, fail, and no other, until the object ends. One at
// a time, and in one thread.
class FailNthAllocation {
 public:
  explicit FailNthAllocation(int n);
  ~FailNthAllocation();
  FailNthAllocation(const FailNthAllocation&) = delete;
  FailNthAllocation& operator=(const FailNthAllocation&) = delete;

  // The kind of the one that failed; kNothing while none has.
  Asked Failed() const;
};

// Allocations so far, whether they failed or not.
int AllocationCount();

// Blocks that were allocated and not freed.
int HeldBlocks();

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_FAULTS_FAILING_MEMORY_H_
