// How much memory a piece of a program holds at once. A program that links this has operators new
// and delete that count, and its own calls of malloc and its kin are counted, which Eigen makes.
#ifndef QUORVEX_TESTS_SUPPORT_ALLOCATION_PEAK_H_
#define QUORVEX_TESTS_SUPPORT_ALLOCATION_PEAK_H_

#include <cstddef>

namespace quorvex::tests {

// From now on, the most bytes that are held beyond those held now.
class AllocationPeak {
 public:
  AllocationPeak();

  std::size_t Bytes() const;

 private:
  std::size_t before_;
};

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_ALLOCATION_PEAK_H_
