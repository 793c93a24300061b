// The command where somebody planted links in its place for files, and two commands in one folder.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <functional>
#include <string>
#include <thread>

#include "tests/support/command_test.h"

namespace quorvex::tests {
namespace {

namespace fs = std::filesystem;

constexpr const char* kRender =
    "render --quiet --preset easy --rows 4 --columns 5 --margin 26 --width 1024 --height 840 -o ";

class HostileOutputs : public CommandTest {
 protected:
  HostileOutputs() {
    EXPECT_EQ(Run(kRender + std::string("target.bmp")), 0);
    folder.File("victim", "of somebody else");
  }

  void PlantLink(const std::string& name) {
    fs::create_symlink(folder.Path("victim"), folder.Path(name));
  }

  // The link gave way to a file, and what it led to is as it was.
  void ExpectReplaced(const std::string& name) {
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(folder.Path(name)))) << name;
    EXPECT_EQ(ReadWhole(folder.Path("victim")), "of somebody else") << name;
  }
};

TEST_F(HostileOutputs, ResultsReplaceLinks) {
  for (const char* name : {"a.csv", "a.json", "a.bmp", "a.png"}) PlantLink(name);
  EXPECT_EQ(Run("detect -q target.bmp -o a.csv"), 0);
  EXPECT_EQ(Run("detect -q --format json target.bmp -o a.json"), 0);
  EXPECT_EQ(Run(kRender + std::string("a.bmp")), 0);
  EXPECT_EQ(Run("detect -q target.bmp --overlay a.png -o b.csv"), 0);
  for (const char* name : {"a.csv", "a.json", "a.bmp", "a.png"}) ExpectReplaced(name);
}

TEST_F(HostileOutputs, KeptDiagnosticsReplaceLinks) {
  fs::create_directory(folder.Path("kept"));
  for (const char* name : {"kept/Mask.bmp", "kept/Row.txt", "kept/LineSegment.bmp"}) {
    PlantLink(name);
  }
  EXPECT_EQ(Run("detect -q target.bmp --diagnostics kept -o a.csv"), 0) << errors;
  for (const char* name : {"kept/Mask.bmp", "kept/Row.txt", "kept/LineSegment.bmp"}) {
    ExpectReplaced(name);
  }
}

TEST_F(HostileOutputs, APipeIsRefusedAndNotWaitedFor) {
  fs::create_directory(folder.Path("kept"));
  ASSERT_EQ(mkfifo(folder.Path("kept/Mask.bmp").c_str(), 0600), 0);
  ASSERT_EQ(mkfifo(folder.Path("a.csv").c_str(), 0600), 0);
  EXPECT_EQ(Run("detect -q target.bmp --diagnostics kept -o b.csv"), 2);
  EXPECT_THAT(errors, testing::HasSubstr("Mask.bmp: it is not a regular file"));
  EXPECT_EQ(Run("detect -q target.bmp -o a.csv"), 2);
}

// A folder for temporary files in which somebody planted what could be taken for the command's.
TEST_F(HostileOutputs, PlantedFoldersAreLeftAlone) {
  const fs::path temporary = folder.Path("temporary");
  fs::create_directory(folder.Path("precious"));
  folder.File("precious/.owner", "");
  fs::create_directory_symlink(folder.Path("precious"), temporary / "quorvex-AAAAAA");
  fs::create_directory(temporary / "quorvex-BBBBBB");
  PlantLink("temporary/quorvex-BBBBBB/.owner");
  EXPECT_EQ(Run("detect -q target.bmp -o a.csv"), 0);
  EXPECT_TRUE(folder.Has("precious/.owner"));
  EXPECT_TRUE(fs::exists(temporary / "quorvex-BBBBBB"));
  EXPECT_EQ(ReadWhole(folder.Path("victim")), "of somebody else");
}

TEST_F(HostileOutputs, TwoCommandsInOneFolderLeaveWholeFiles) {
  ASSERT_EQ(Run("detect -q target.bmp --diagnostics alone -o alone.csv"), 0);
  const auto detect = [this](const std::string& name, int& worst) {
    ProgramRun run = MakeRun("detect -q target.bmp --diagnostics both -o both.csv");
    run.output = name + ".out";
    run.errors = name + ".err";
    for (int i = 0; i < 3; ++i) worst = std::max(worst, RunProgram(run));
  };
  int worst[2] = {};
  std::thread first(detect, "first", std::ref(worst[0]));
  std::thread second(detect, "second", std::ref(worst[1]));
  first.join();
  second.join();
  EXPECT_EQ(worst[0], 0) << ReadWhole(folder.Path("first.err"));
  EXPECT_EQ(worst[1], 0) << ReadWhole(folder.Path("second.err"));
  EXPECT_EQ(ReadWhole(folder.Path("both.csv")), ReadWhole(folder.Path("alone.csv")));
  for (const auto& file : fs::directory_iterator(folder.Path("alone"))) {
    const std::string name = file.path().filename().string();
    EXPECT_TRUE(ReadWhole(folder.Path("both/" + name)) == ReadWhole(file.path().string())) << name;
  }
  EXPECT_TRUE(LeftNothingTemporary());
}

}  // namespace
}  // namespace quorvex::tests
