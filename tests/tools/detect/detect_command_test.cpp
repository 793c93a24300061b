// The command itself: exit codes, messages, and what it leaves behind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/support/command_test.h"
#include "tools/pictures/picture_file.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;
using testing::Not;

class DetectCommand : public CommandTest {
 protected:
  DetectCommand() {
    WritePictureFile(FlatPicture(64, 48, 20), folder.Path("dark.bmp"));
    WritePictureFile(FlatPicture(63, 46, 20), folder.Path("odd.bmp"));
  }
};

TEST_F(DetectCommand, ShowsHelpWithExamples) {
  EXPECT_EQ(Run("detect --help"), 0);
  EXPECT_THAT(output, HasSubstr("Examples:"));
  EXPECT_THAT(output, Not(HasSubstr("detect-worker")));
}

TEST_F(DetectCommand, RefusesBadUsage) {
  EXPECT_EQ(Run("detect"), 2);
  EXPECT_EQ(Run("detect dark.bmp --no-such-option"), 2);
  EXPECT_THAT(errors, HasSubstr("--no-such-option"));
  EXPECT_EQ(Run("detect dark.bmp --row-steps 0"), 2);
  EXPECT_EQ(Run("detect dark.bmp --row-span -1"), 2);
  EXPECT_EQ(Run("detect dark.bmp -j 0"), 2);
  EXPECT_EQ(Run("detect dark.bmp -j 65"), 2);
  EXPECT_EQ(Run("detect dark.bmp --format xml"), 2);
}

TEST_F(DetectCommand, NamesAMissingFile) {
  EXPECT_EQ(Run("detect none.bmp"), 2);
  EXPECT_THAT(errors, HasSubstr("none.bmp"));
  EXPECT_EQ(output, "");
  EXPECT_TRUE(LeftNothingTemporary());
}

TEST_F(DetectCommand, RefusesADirectory) {
  EXPECT_EQ(Run("detect temporary"), 2);
  EXPECT_THAT(errors, HasSubstr("temporary"));
}

TEST_F(DetectCommand, RefusesATruncatedPicture) {
  const std::string whole = ReadWhole(folder.Path("dark.bmp"));
  folder.File("cut.bmp", whole.substr(0, whole.size() / 2));
  EXPECT_EQ(Run("detect cut.bmp"), 2);
  EXPECT_THAT(errors, HasSubstr("cut.bmp"));
  folder.File("empty.bmp", "");
  EXPECT_EQ(Run("detect empty.bmp"), 2);
  EXPECT_TRUE(LeftNothingTemporary());
}

TEST_F(DetectCommand, SaysThatNothingWasFound) {
  EXPECT_EQ(Run("detect dark.bmp --quiet"), 1);
  EXPECT_THAT(errors, HasSubstr("dark.bmp: no bright target"));
  EXPECT_EQ(output, "");
  EXPECT_TRUE(LeftNothingTemporary());
}

TEST_F(DetectCommand, PadsAnOddSizeAndSaysSo) {
  EXPECT_EQ(Run("detect odd.bmp"), 1);
  EXPECT_THAT(errors, HasSubstr("odd.bmp: grown from 63 x 46 to 64 x 48 pixels, since"));
  EXPECT_THAT(errors, HasSubstr("no bright target"));
  EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 2);
  EXPECT_EQ(Run("detect odd.bmp --pad"), 1);
  EXPECT_EQ(Run("detect odd.bmp -q"), 1);
  EXPECT_THAT(errors, Not(HasSubstr("grown")));
}

TEST_F(DetectCommand, RefusesAnOddSizeWhenAsked) {
  EXPECT_EQ(Run("detect odd.bmp --no-pad"), 2);
  EXPECT_EQ(errors,
            "quorvex: odd.bmp is 63 x 46 pixels, but width and height must be multiples of 4; "
            "without --no-pad the picture is grown\n");
}

TEST_F(DetectCommand, WritesNoOutputWhenNothingWasFound) {
  folder.File("points.csv", "kept");
  const std::size_t before = folder.FileCount() + 2;  // with the captured output
  EXPECT_EQ(Run("detect dark.bmp --output points.csv --overlay new.png"), 1);
  EXPECT_EQ(ReadWhole(folder.Path("points.csv")), "kept");
  EXPECT_FALSE(folder.Has("new.png"));
  EXPECT_EQ(folder.FileCount(), before);
}

TEST_F(DetectCommand, ChecksOutputsBeforeTheDetection) {
  for (const char* arguments : {"--output no/such/folder/points.csv", "--output temporary",
                                "--overlay no/such/folder/o.png", "--overlay picture.jpg",
                                "--diagnostics dark.bmp", "--diagnostics dark.bmp/deep",
                                "--output dark.bmp", "--overlay same.png --output same.png"}) {
    EXPECT_EQ(Run(std::string("detect dark.bmp ") + arguments), 2) << arguments;
    EXPECT_THAT(errors, Not(HasSubstr("no bright target"))) << arguments;
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
  }
}

TEST_F(DetectCommand, RefusesOneOverlayForTwoImages) {
  EXPECT_EQ(Run("detect dark.bmp odd.bmp --overlay o.png"), 2);
  EXPECT_EQ(errors,
            "quorvex: --overlay o.png is one file for 2 images; give a folder, or put {name} in "
            "the file's name\n");
}

TEST_F(DetectCommand, RefusesAnOverlayOverAnImage) {
  std::filesystem::copy_file(folder.Path("dark.bmp"), folder.Path("dark.png"));
  EXPECT_EQ(Run("detect dark.png odd.bmp --overlay ./"), 2);
  EXPECT_THAT(errors, HasSubstr("dark.png is one of the images"));
}

TEST_F(DetectCommand, KeepsDiagnosticsWhenAsked) {
  EXPECT_EQ(Run("detect dark.bmp --diagnostics one"), 1);
  EXPECT_EQ(ReadPictureFile(folder.Path("one/ProImage.bmp")).pixels,
            ReadPictureFile(folder.Path("dark.bmp")).pixels);
  EXPECT_TRUE(folder.Has("one/Mask.bmp"));
  EXPECT_FALSE(folder.Has("one/result.json"));
  EXPECT_EQ(Run("detect dark.bmp odd.bmp --diagnostics two"), 1);
  EXPECT_TRUE(folder.Has("two/dark/Mask.bmp"));
  EXPECT_TRUE(folder.Has("two/odd/Mask.bmp"));
  EXPECT_TRUE(LeftNothingTemporary());
}

TEST_F(DetectCommand, TakesANameThatBeginsWithADash) {
  std::filesystem::copy_file(folder.Path("dark.bmp"), folder.Path("-d.bmp"));
  EXPECT_EQ(Run("detect -- -d.bmp"), 1);
  EXPECT_THAT(errors, HasSubstr("-d.bmp: no bright target"));
}

TEST_F(DetectCommand, SaysThatThereIsNoTemporaryFolder) {
  std::filesystem::remove(folder.Path("temporary"));
  EXPECT_EQ(Run("detect dark.bmp"), 2);
  EXPECT_THAT(errors, HasSubstr("temporary"));
}

// A rendered board of twenty marks that the detection solves completely.
class DetectTarget : public DetectCommand {
 protected:
  DetectTarget() { Render("target.bmp", 1024, 840); }

  void Render(const std::string& name, int width, int height) {
    ASSERT_EQ(Run("render --quiet --preset easy --rows 4 --columns 5 --margin 26 --width " +
                  std::to_string(width) + " --height " + std::to_string(height) + " -o " + name),
              0)
        << errors;
  }
};

TEST_F(DetectTarget, WritesThePointsToStandardOutputAndASummaryToStandardError) {
  EXPECT_EQ(Run("detect target.bmp"), 0);
  EXPECT_EQ(output.substr(0, output.find('\n')), "id,row,col,x,y,kind");
  EXPECT_EQ(std::count(output.begin(), output.end(), '\n'), 1 + 20);
  EXPECT_EQ(errors, "target.bmp: 20 points, 4 rows x 5 columns\n");
  folder.File("points.csv", output);
  EXPECT_EQ(Run("compare points.csv target.csv --max-rms 0.5"), 0) << output;
}

TEST_F(DetectTarget, IsSilentWhenAsked) {
  EXPECT_EQ(Run("detect target.bmp --quiet --output points.csv"), 0);
  EXPECT_EQ(output, "");
  EXPECT_EQ(errors, "");
  EXPECT_TRUE(folder.Has("points.csv"));
}

TEST_F(DetectTarget, GivesTheSummaryOfTheTextFormatOnce) {
  EXPECT_EQ(Run("detect target.bmp --format text"), 0);
  EXPECT_THAT(output, HasSubstr("target.bmp: 20 points, 4 rows x 5 columns\n"));
  EXPECT_EQ(errors, "");
}

TEST_F(DetectTarget, DrawsAnOverlay) {
  EXPECT_EQ(Run("detect target.bmp --output points.csv --overlay points.png"), 0);
  const Picture overlay = ReadPictureFile(folder.Path("points.png"));
  EXPECT_EQ(overlay.width, 1024);
  EXPECT_EQ(overlay.height, 840);
  EXPECT_NE(overlay.pixels, ReadPictureFile(folder.Path("target.bmp")).pixels);
}

TEST_F(DetectTarget, DrawsTheOverlaysOfTheImagesThatSucceeded) {
  EXPECT_EQ(Run("detect target.bmp dark.bmp target.bmp -o points.csv --overlay new/o-{name}.PNG"),
            1);
  EXPECT_TRUE(folder.Has("new/o-target.PNG"));
  EXPECT_TRUE(folder.Has("new/o-target-2.PNG"));
  EXPECT_FALSE(folder.Has("new/o-dark.PNG"));
  EXPECT_EQ(Run("detect target.bmp -o points.csv --overlay seen/"), 0);
  EXPECT_EQ(ReadWhole(folder.Path("seen/target.png")), ReadWhole(folder.Path("new/o-target.PNG")));
}

TEST_F(DetectTarget, WritesTheImagesThatSucceededWhenOthersFail) {
  EXPECT_EQ(Run("detect dark.bmp target.bmp none.bmp -j 2 --format json --output points.json"), 2);
  EXPECT_EQ(Run("compare points.json target.csv --image target.bmp"), 0) << errors;
  const std::string json = ReadWhole(folder.Path("points.json"));
  EXPECT_THAT(json, HasSubstr("\"target.bmp\""));
  EXPECT_THAT(json, HasSubstr("\"dark.bmp\""));
}

TEST_F(DetectTarget, ChoosesTheFormatByTheOutputsName) {
  EXPECT_EQ(Run("detect target.bmp -o points.json"), 0);
  EXPECT_EQ(ReadWhole(folder.Path("points.json")).front(), '[');
  EXPECT_EQ(Run("detect target.bmp -o -"), 0);
  EXPECT_THAT(output, HasSubstr("id,row,col,x,y"));
  EXPECT_FALSE(folder.Has("-"));
}

TEST_F(DetectTarget, NamesTheImageWhenThereAreSeveral) {
  EXPECT_EQ(Run("detect target.bmp target.bmp -j 2"), 0);
  EXPECT_THAT(output, HasSubstr("image,id,row,col,x,y,kind\ntarget.bmp,1,0,0,"));
  EXPECT_EQ(std::count(output.begin(), output.end(), '\n'), 1 + 2 * 20);
}

TEST_F(DetectTarget, PaddedPositionsAreThoseOfTheImage) {
  Render("odd.png", 1021, 838);
  EXPECT_EQ(Run("detect odd.png --format json --output points.json"), 0);
  EXPECT_THAT(ReadWhole(folder.Path("points.json")),
              HasSubstr("\"width\": 1021,\n  \"height\": 838"));
  EXPECT_EQ(Run("compare points.json odd.csv --max-rms 0.5"), 0) << output;
}

TEST_F(DetectTarget, KeepsTheListsBesideThePictures) {
  EXPECT_EQ(Run("detect target.bmp --diagnostics kept"), 0);
  EXPECT_TRUE(folder.Has("kept/Row.txt"));
  EXPECT_TRUE(folder.Has("kept/Thining.bmp"));
  EXPECT_FALSE(folder.Has("kept/D:"));
}

TEST_F(DetectTarget, KeepsTheListsOfEachOfSeveralImages) {
  Render("wider.bmp", 1064, 840);
  EXPECT_EQ(Run("detect target.bmp dark.bmp wider.bmp -j 3 --diagnostics kept"), 1);
  EXPECT_FALSE(folder.Has("kept/dark/Row.txt"));
  for (const std::string name : {"target", "wider"}) {
    EXPECT_EQ(Run("detect " + name + ".bmp --diagnostics alone"), 0);
    const std::string rows = ReadWhole(folder.Path("alone/Row.txt"));
    EXPECT_FALSE(rows.empty()) << name;
    EXPECT_EQ(ReadWhole(folder.Path("kept/" + name + "/Row.txt")), rows) << name;
  }
}

TEST_F(DetectTarget, TakesNamesOfAllLanguages) {
  const std::string name = "bild-\xC3\xA4-\xE6\x97\xA5\xE6\x9C\xAC";
  Render(name + ".bmp", 1024, 840);
  EXPECT_EQ(Run("detect " + name + ".bmp --format json --output " + name + ".json --overlay " +
                name + ".png"),
            0);
  EXPECT_EQ(errors, name + ".bmp: 20 points, 4 rows x 5 columns\n");
  EXPECT_TRUE(folder.Has(name + ".png"));
  EXPECT_THAT(ReadWhole(folder.Path(name + ".json")), HasSubstr("\"" + name + ".bmp\""));
  EXPECT_EQ(Run("compare " + name + ".json " + name + ".csv"), 0);

  EXPECT_EQ(Run("detect dark.bmp " + name + ".bmp --diagnostics " + name), 1);
  EXPECT_TRUE(folder.Has(name + "/" + name + "/Mask.bmp"));
  EXPECT_EQ(Run("points add " + name + ".json --at 1,2 --output " + name + ".json"), 2);
  EXPECT_EQ(errors, "quorvex: " + name + ".json is the list itself; --in-place writes over it\n");
  EXPECT_EQ(Run("points delete " + name + ".json --id 20 --in-place"), 0);
  EXPECT_THAT(ReadWhole(folder.Path(name + ".json")), Not(HasSubstr("\"id\": 20,")));
}

}  // namespace
}  // namespace quorvex::tests
