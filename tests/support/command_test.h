// A test of the command itself: runs it in a folder of its own and keeps what it says.
#ifndef QUORVEX_TESTS_SUPPORT_COMMAND_TEST_H_
#define QUORVEX_TESTS_SUPPORT_COMMAND_TEST_H_

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/run_program.h"
#include "tests/support/test_files.h"

namespace quorvex::tests {

class CommandTest : public testing::Test {
 protected:
  CommandTest() { std::filesystem::create_directory(folder.Path("temporary")); }

  // Runs the command in the test's folder and returns its exit code. The arguments stand between
  // blanks.
  int Run(const std::string& arguments) { return Run(MakeRun(arguments)); }

  int Run(const ProgramRun& run) {
    const int exitCode = RunProgram(run);
    output = ReadWhole(folder.Path("out.txt"));
    errors = ReadWhole(folder.Path("err.txt"));
    return exitCode;
  }

  ProgramRun MakeRun(const std::string& arguments) const {
    const std::string temporary = folder.Path("temporary");
    // One name for POSIX, one for Windows.
    return {QUORVEX_COMMAND,
            SplitAtBlanks(arguments),
            folder.Path(),
            {{"TMPDIR", temporary}, {"TMP", temporary}}};
  }

  bool LeftNothingTemporary() const { return std::filesystem::is_empty(folder.Path("temporary")); }

  TemporaryFolder folder;
  std::string output;
  std::string errors;
};

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_COMMAND_TEST_H_
