// A program in a pseudo terminal, and what somebody who looks at it sees.
#ifndef QUORVEX_TESTS_SUPPORT_POSIX_TERMINAL_H_
#define QUORVEX_TESTS_SUPPORT_POSIX_TERMINAL_H_

#include <string>
#include <vector>

#include "tests/support/run_program.h"

namespace quorvex::tests {

struct TerminalRun {
  int exitCode = -1;
  std::string screen;              // in the end
  std::vector<std::string> looks;  // the line of the cursor, each time the program paused
};

// The program's standard error goes to the terminal, its standard output to run.output. A pause is
// 20 ms without output.
TerminalRun RunInTerminal(const ProgramRun& run);

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_POSIX_TERMINAL_H_
