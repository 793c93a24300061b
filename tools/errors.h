// The one exception of the command: bad usage or bad input, to be shown as it stands with exit
// code 2.
#ifndef QUORVEX_TOOLS_ERRORS_H_
#define QUORVEX_TOOLS_ERRORS_H_

#include <stdexcept>

namespace quorvex::tools {

class InputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Exit codes of the command.
constexpr int kExitSuccess = 0;
constexpr int kExitNothingFound = 1;  // the input was read but detection, comparison or edit failed
constexpr int kExitBadInput = 2;      // bad usage or input

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_ERRORS_H_
