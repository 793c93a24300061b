// A command that is killed, so that it cannot clean up.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include "tests/support/command_test.h"
#include "tools/pictures/picture_file.h"

namespace quorvex::tests {

using namespace tools;

namespace {

namespace fs = std::filesystem;

class KilledCommand : public CommandTest {
 protected:
  // Kills the command once its worker writes pictures.
  void KillInMidDetection(const std::string& image) {
    const pid_t command = fork();
    if (command == 0) {
      setenv("TMPDIR", folder.Path("temporary").c_str(), 1);
      execl(QUORVEX_COMMAND, QUORVEX_COMMAND, "detect", "-q", folder.Path(image).c_str(), nullptr);
      _exit(127);
    }
    constexpr auto kPatience = std::chrono::seconds(20);
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!HasPicture() && std::chrono::steady_clock::now() < end) {
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    kill(command, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(command, &status, 0), command);
    ASSERT_TRUE(WIFSIGNALED(status));
  }

  bool HasPicture() const {
    for (const auto& directory : fs::directory_iterator(folder.Path("temporary"))) {
      if (fs::exists(directory.path() / "ProImage.bmp")) return true;
    }
    return false;
  }
};

TEST_F(KilledCommand, LeavesADirectoryThatTheNextRunRemoves) {
  WritePictureFile(FlatPicture(4000, 4000, 120), folder.Path("big.bmp"));
  WritePictureFile(FlatPicture(64, 48, 20), folder.Path("small.bmp"));
  KillInMidDetection("big.bmp");
  EXPECT_FALSE(LeftNothingTemporary());
  EXPECT_EQ(Run("detect -q small.bmp"), 1);
  EXPECT_TRUE(LeftNothingTemporary());
}

}  // namespace
}  // namespace quorvex::tests
