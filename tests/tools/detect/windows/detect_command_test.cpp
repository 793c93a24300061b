// What the command does on Windows only: patterns are its own to expand, and the drive D: is
// shared.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <thread>

#include "tests/support/command_test.h"
#include "tools/detect/list_folder.h"
#include "tools/pictures/picture_file.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

TEST_F(CommandTest, ExpandsPatterns) {
  WritePictureFile(FlatPicture(64, 48, 20), folder.Path("a1.bmp"));
  WritePictureFile(FlatPicture(64, 48, 20), folder.Path("a2.bmp"));
  WritePictureFile(FlatPicture(64, 48, 20), folder.Path("b.bmp"));
  EXPECT_EQ(Run("detect a?.*"), 1);
  EXPECT_THAT(errors, HasSubstr("quorvex: a1.bmp: no bright target"));
  EXPECT_THAT(errors, HasSubstr("quorvex: a2.bmp: no bright target"));
  EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 2);
}

BOOL WINAPI KeepRunning(DWORD) { return TRUE; }

TEST_F(CommandTest, CtrlCEndsADetectionAndLeavesNothingBehind) {
  ASSERT_EQ(Run("render --quiet --output board.bmp"), 0);
  // A console that only this process and the command have.
  FreeConsole();
  ASSERT_TRUE(AllocConsole());
  SetConsoleCtrlHandler(nullptr, FALSE);  // a parent may have left Ctrl+C ignored
  SetConsoleCtrlHandler(KeepRunning, TRUE);
  int exitCode = 0;
  std::thread command(
      [&] { exitCode = Run("detect board.bmp board.bmp board.bmp board.bmp -j 2"); });
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (LeftNothingTemporary() && std::chrono::steady_clock::now() < end) Sleep(10);
  Sleep(100);  // into the detection
  EXPECT_FALSE(LeftNothingTemporary());
  EXPECT_TRUE(GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0));
  command.join();
  SetConsoleCtrlHandler(KeepRunning, FALSE);
  EXPECT_EQ(exitCode, 130);
  EXPECT_EQ(output, "");
  EXPECT_EQ(errors, "");
  EXPECT_TRUE(LeftNothingTemporary());
}

class ListsOfEarlierDetections : public CommandTest {
 protected:
  ListsOfEarlierDetections() {
    WritePictureFile(FlatPicture(64, 48, 20), folder.Path("dark.bmp"));
    for (const char* name : kListFiles) std::ofstream(ListFolder("") / name) << "1 2\n";
  }
  ~ListsOfEarlierDetections() override { PrepareListFolder(""); }
};

TEST_F(ListsOfEarlierDetections, AreNotKept) {
  EXPECT_EQ(Run("detect dark.bmp --diagnostics kept"), 1);
  EXPECT_TRUE(folder.Has("kept/Mask.bmp"));
  for (const char* name : kListFiles) {
    EXPECT_FALSE(folder.Has(std::string("kept/") + name)) << name;
  }
}

TEST_F(ListsOfEarlierDetections, DoNotMisleadTheDiagnosis) {
  EXPECT_EQ(Run("detect dark.bmp"), 1);
  EXPECT_THAT(errors, HasSubstr("no bright target"));
  // Nobody asked for them.
  for (const char* name : kListFiles) EXPECT_TRUE(std::filesystem::exists(ListFolder("") / name));
}

TEST_F(ListsOfEarlierDetections, HelpSaysThatImagesWait) {
  EXPECT_EQ(Run("detect --help"), 0);
  EXPECT_THAT(output, HasSubstr("drive D:"));
}

}  // namespace
}  // namespace quorvex::tests
