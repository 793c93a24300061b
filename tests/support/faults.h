// Failures on demand: the n-th allocation from the platform's heaps or the n-th write to a file.
#ifndef QUORVEX_TESTS_SUPPORT_FAULTS_H_
#define QUORVEX_TESTS_SUPPORT_FAULTS_H_

namespace quorvex::tests {

enum class Fault { kLocalAlloc, kGlobalAlloc, kWrite };

// Lets the n-th call of that kind (from 1) fail, and no other, until the object ends.
class FailNth {
 public:
  FailNth(Fault fault, int n);
  ~FailNth();
  FailNth(const FailNth&) = delete;
  FailNth& operator=(const FailNth&) = delete;

  bool HasHappened() const;

 private:
  Fault fault_;
};

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_FAULTS_H_
