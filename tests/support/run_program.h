// Running a program and waiting for its end. The sources in posix/ and windows/ are chosen by
// CMake.
#ifndef QUORVEX_TESTS_SUPPORT_RUN_PROGRAM_H_
#define QUORVEX_TESTS_SUPPORT_RUN_PROGRAM_H_

#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace quorvex::tests {

struct ProgramRun {
  std::string program;
  std::vector<std::string> arguments;
  std::string folder;                                   // where it runs
  std::map<std::string, std::string> environment = {};  // on top of the test's own
  // Files for its streams, seen from the folder.
  std::string input = "";  // empty for nothing to read
  std::string output = "out.txt";
  std::string errors = "err.txt";
};

// Returns its exit code, -1 when a signal ended it. Throws std::runtime_error when it cannot be
// started.
int RunProgram(const ProgramRun& run);

inline std::vector<std::string> SplitAtBlanks(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_RUN_PROGRAM_H_
