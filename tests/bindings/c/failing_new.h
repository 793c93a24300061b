// Memory that ends on demand: a program that links this has operators new and delete of its own.
#ifndef QUORVEX_TESTS_BINDINGS_C_FAILING_NEW_H_
#define QUORVEX_TESTS_BINDINGS_C_FAILING_NEW_H_

namespace quorvex::tests {

// Lets the n-th operator new of the program (from 1) fail, and no other, until the object ends.
class FailNthNew {
 public:
  explicit FailNthNew(int n);
  ~FailNthNew();
  FailNthNew(const FailNthNew&) = delete;
  FailNthNew& operator=(const FailNthNew&) = delete;

  bool HasHappened() const;
};

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_BINDINGS_C_FAILING_NEW_H_
