// The message box of the tests: records what the library shows instead of showing it.
#ifndef QUORVEX_TESTS_SUPPORT_MESSAGE_BOX_H_
#define QUORVEX_TESTS_SUPPORT_MESSAGE_BOX_H_

#include <string>
#include <vector>

namespace quorvex::tests {

// The texts shown since the last call, in order; the record is emptied.
std::vector<std::string> TakeMessages();

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_MESSAGE_BOX_H_
