// The command on files that only POSIX has: links, devices, pipes.
#include "tests/support/command_test.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <fstream>
#include <thread>

namespace quorvex::tests {

using namespace tools;

namespace {

constexpr const char* kList = "id,row,col,x,y\n1,0,0,10.5,20.25\n2,0,1,110,21\n";

class SpecialFiles : public CommandTest {
 protected:
  SpecialFiles() { folder.File("p.csv", kList); }

  void ExpectFullDevice(const std::string& arguments) {
    ProgramRun run = MakeRun(arguments);
    run.output = "/dev/full";
    EXPECT_EQ(RunProgram(run), 2);
    EXPECT_EQ(ReadWhole(folder.Path("err.txt")), "quorvex: standard output cannot be written\n");
  }
};

TEST_F(SpecialFiles, InPlaceALinkStaysALink) {
  std::filesystem::create_symlink("p.csv", folder.Path("link.csv"));
  EXPECT_EQ(Run("points delete link.csv --id 2 --in-place"), 0);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link.csv")));
  EXPECT_EQ(ReadWhole(folder.Path("p.csv")), "id,row,col,x,y\n1,0,0,10.5,20.25\n");
}

TEST_F(SpecialFiles, TellsAFullDevice) {
  ExpectFullDevice("points list p.csv");
  ASSERT_EQ(Run("render --quiet --preset easy --rows 4 --columns 5 --margin 26 --width 1024 "
                "--height 840 -o target.bmp"),
            0);
  ExpectFullDevice("detect --quiet target.bmp");
}

TEST_F(SpecialFiles, ReadsAPipe) {
  const std::string pipe = folder.Path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::thread writer([&] { std::ofstream(pipe) << kList << "-1,-1,-1,1,2\n"; });
  EXPECT_EQ(Run("points delete pipe --id -1"), 0);
  writer.join();
  EXPECT_EQ(output, kList);
}

TEST_F(SpecialFiles, ReadsStandardInput) {
  ProgramRun run = MakeRun("points delete /dev/stdin --id 2");
  run.input = "p.csv";
  EXPECT_EQ(Run(run), 0);
  EXPECT_EQ(output, "id,row,col,x,y\n1,0,0,10.5,20.25\n");
}

TEST_F(SpecialFiles, NamesAMissingFolderForTemporaryFiles) {
  ASSERT_EQ(Run("render --quiet --preset easy --rows 4 --columns 5 --margin 26 --width 1024 "
                "--height 840 -o target.bmp"),
            0);
  ProgramRun run = MakeRun("detect target.bmp");
  run.environment["TMPDIR"] = folder.Path("absent");
  EXPECT_EQ(Run(run), 2);
  EXPECT_THAT(errors, testing::StartsWith("quorvex: the folder for temporary files, " +
                                          folder.Path("absent") +
                                          " (the variable TMPDIR names it), cannot be used: "));
}

TEST_F(SpecialFiles, ADeviceIsNoPicture) {
  EXPECT_EQ(Run("detect /dev/null"), 2);
  EXPECT_EQ(errors, "quorvex: cannot read /dev/null: it is not a regular file\n");
}

TEST_F(SpecialFiles, ADeviceIsNotReplaced) {
  EXPECT_EQ(Run("points add p.csv --at 1,2 --output /dev/null"), 2);
  EXPECT_EQ(errors, "quorvex: cannot write /dev/null: it is not a regular file\n");
}

}  // namespace
}  // namespace quorvex::tests
