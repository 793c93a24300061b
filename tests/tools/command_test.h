// A test of the command itself: runs it in a folder of its own and keeps what it says.
#ifndef QUORVEX_TESTS_TOOLS_COMMAND_TEST_H_
#define QUORVEX_TESTS_TOOLS_COMMAND_TEST_H_

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <filesystem>
#include <string>

#include "tests/tools/detect_test_files.h"

namespace quorvex::tools {

class CommandTest : public testing::Test {
 protected:
  CommandTest() { std::filesystem::create_directory(folder.Path("temporary")); }

  // Runs the command in the test's folder and returns its exit code.
  int Run(const std::string& arguments) {
    const std::string line = "cd '" + folder.Path() + "' && TMPDIR='" + folder.Path("temporary") +
                             "' '" QUORVEX_COMMAND "' " + arguments + " > out.txt 2> err.txt";
    const int status = std::system(line.c_str());
    output = ReadWhole(folder.Path("out.txt"));
    errors = ReadWhole(folder.Path("err.txt"));
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  bool LeftNothingTemporary() const { return std::filesystem::is_empty(folder.Path("temporary")); }

  TemporaryFolder folder;
  std::string output;
  std::string errors;
};

}  // namespace quorvex::tools

#endif  // QUORVEX_TESTS_TOOLS_COMMAND_TEST_H_
