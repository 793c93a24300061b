// What the command does on POSIX systems: a terminal, limits of memory and files, signals.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/command_test.h"
#include "tests/support/posix/terminal.h"
#include "tools/pictures/picture_file.h"

#if defined(__SANITIZE_ADDRESS__)
#define QUORVEX_NEEDS_ADDRESS_SPACE
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QUORVEX_NEEDS_ADDRESS_SPACE
#endif
#endif

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::StartsWith;

class DetectOnPosix : public CommandTest {
 protected:
  // The command in a shell that sets limits before.
  ProgramRun MakeLimitedRun(const std::string& limits, const std::string& arguments) const {
    ProgramRun run = MakeRun("");
    run.program = "/bin/sh";
    run.arguments = {"-c", limits + "; exec " QUORVEX_COMMAND " " + arguments};
    return run;
  }
};

TEST_F(DetectOnPosix, ShowsItsProgressInATerminal) {
  ASSERT_EQ(Run("render --quiet --preset easy --rows 4 --columns 5 --margin 26 --width 1024 "
                "--height 840 -o a.png"),
            0);
  std::filesystem::copy_file(folder.Path("a.png"), folder.Path("b.png"));
  const TerminalRun seen = RunInTerminal(MakeRun("detect a.png b.png -o points.csv"));
  EXPECT_EQ(seen.exitCode, 0);
  EXPECT_THAT(seen.looks, Contains("0 of 2 images"));
  EXPECT_THAT(seen.looks, Contains(StartsWith("1 of 2 images, ")));
  EXPECT_EQ(seen.screen,
            "a.png: 20 points, 4 rows x 5 columns\nb.png: 20 points, 4 rows x 5 columns\n\n");
}

TEST_F(DetectOnPosix, ShowsNoProgressOfOneImageOrWhenQuiet) {
  WritePictureFile(FlatPicture(64, 48, 20), folder.Path("dark.bmp"));
  TerminalRun seen = RunInTerminal(MakeRun("detect dark.bmp"));
  EXPECT_EQ(seen.exitCode, 1);
  EXPECT_THAT(seen.looks, Not(Contains(HasSubstr("of"))));
  seen = RunInTerminal(MakeRun("detect dark.bmp dark.bmp -q"));
  EXPECT_THAT(seen.looks, Not(Contains(HasSubstr("of 2"))));
}

TEST_F(DetectOnPosix, SaysThatMemoryIsShort) {
#ifdef QUORVEX_NEEDS_ADDRESS_SPACE
  GTEST_SKIP() << "the address sanitizer does not start within the limit";
#endif
  WritePictureFile(FlatPicture(8000, 8000, 20), folder.Path("big.png"));
  EXPECT_EQ(Run(MakeLimitedRun("ulimit -v 150000", "detect big.png")), 1);
  EXPECT_THAT(errors, HasSubstr("big.png: the detection failed: out of memory for a picture of "
                                "8000 x 8000 pixels"));
  EXPECT_EQ(Run(MakeLimitedRun("ulimit -v 60000", "detect big.png")), 2);
  EXPECT_THAT(errors, HasSubstr("big.png"));
}

TEST_F(DetectOnPosix, SaysThatTheTemporaryFolderTakesNoFiles) {
  WritePictureFile(FlatPicture(64, 48, 20), folder.Path("dark.bmp"));
  // Writing then fails instead of ending the program; only a terminal takes what it says.
  const TerminalRun seen =
      RunInTerminal(MakeLimitedRun("trap '' XFSZ; ulimit -f 0", "detect dark.bmp"));
  EXPECT_EQ(seen.exitCode, 1);
  EXPECT_THAT(seen.screen, HasSubstr("dark.bmp: the detection could not leave its result in " +
                                     folder.Path("temporary")));
}

}  // namespace
}  // namespace quorvex::tests
