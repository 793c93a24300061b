// Runs over many pictures that are killed and gone on with.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/command_test.h"
#include "tools/pictures/picture_file.h"
#include "tools/render/presets.h"
#include "tools/render/render_target.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

constexpr int kPictures = 300;

class ManyPictures : public CommandTest {
 protected:
  ManyPictures() {
    RenderSettings settings = PresetByName("easy");
    settings.width = 480;
    settings.height = 400;
    settings.focalLength /= 2;
    settings.rows = 3;
    settings.columns = 4;
    settings.margin = 26;
    const std::string first = folder.Path("picture0.png");
    WritePictureFile(RenderTarget(settings).picture, first);
    for (int i = 1; i < kPictures; ++i) {
      std::filesystem::create_hard_link(first, folder.Path(Name(i)));
    }
    std::filesystem::remove(folder.Path(Name(7)));
    folder.File(Name(7), "no picture");
  }

  static std::string Name(int i) { return "picture" + std::to_string(i) + ".png"; }

  static std::string AllNames() {
    std::string names;
    for (int i = 0; i < kPictures; ++i) names += " " + Name(i);
    return names;
  }

  // Kills the command, and not a shell around it, once it has written for a while.
  void RunAndKill(const std::string& arguments, const char* seconds) {
    ProgramRun run = MakeRun(arguments);
    run.arguments.insert(run.arguments.begin(), {"-s", "KILL", seconds, run.program});
    run.program = "/usr/bin/timeout";
    Run(run);
  }

  std::map<std::string, int> RowsOfImages(const std::string& table) const {
    std::map<std::string, int> rows;
    for (const std::string& line : LinesOf(ReadWhole(folder.Path(table)))) {
      ++rows[line.substr(0, line.find(','))];
    }
    rows.erase("image");
    return rows;
  }

  static std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
  }
};

TEST_F(ManyPictures, NothingIsLostOrTwiceAfterKills) {
  const std::string arguments = "detect --precise -q --resume -o all.csv" + AllNames();
  int kills = 0;
  for (; kills < 3; ++kills) RunAndKill(arguments, "0.4");
  const bool wasKilled = folder.Has("all.csv.resume");
  EXPECT_TRUE(wasKilled) << "the run ended before it was killed";
  EXPECT_LT(RowsOfImages("all.csv").size(), static_cast<std::size_t>(kPictures));
  EXPECT_NE(Run(arguments), 0);  // one of them is no picture
  EXPECT_FALSE(folder.Has("all.csv.resume"));
  const std::map<std::string, int> rows = RowsOfImages("all.csv");
  EXPECT_EQ(rows.size(), static_cast<std::size_t>(kPictures));
  for (const auto& [name, count] : rows) EXPECT_EQ(count, name == Name(7) ? 1 : 12) << name;

  ASSERT_EQ(Run("detect --precise -q -o once.csv" + AllNames()), 2);
  EXPECT_EQ(ReadWhole(folder.Path("all.csv")), ReadWhole(folder.Path("once.csv")));

  ASSERT_EQ(Run("detect --precise --progress --resume -o all.csv" + AllNames()), 1);
  EXPECT_EQ(errors, "300 of 300 images are in all.csv already\n");
}

TEST_F(ManyPictures, TheOtherDetectionIsGoneOnWithToo) {
  std::string some;
  for (int i = 0; i < 12; ++i) some += " " + Name(i);
  const std::string arguments = "detect -q --no-check --resume -j 2 -o some.csv" + some;
  RunAndKill(arguments, "0.5");
  Run(arguments);
  const std::map<std::string, int> rows = RowsOfImages("some.csv");
  EXPECT_EQ(rows.size(), 12u);
  for (const auto& [name, count] : rows) EXPECT_EQ(count, 1) << name;  // none is found in any
}

TEST_F(ManyPictures, TellsProgressWhereThereIsNoTerminal) {
  Run("detect --precise --progress -q -o all.csv" + AllNames());
  EXPECT_THAT(errors, HasSubstr("\n300 of 300 images, "));
  EXPECT_THAT(errors, HasSubstr(" images/s, 0:00 left\n"));
}

}  // namespace
}  // namespace quorvex::tests
