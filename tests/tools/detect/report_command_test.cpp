// The page that 'quorvex detect --report' leaves.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>

#include "tests/support/command_test.h"
#include "tests/support/small_target.h"
#include "tools/pictures/picture_file.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

class ReportCommand : public CommandTest {
 protected:
  ReportCommand() {
    WritePictureFile(RenderTarget(PresetByName("easy")).picture, folder.Path("target.bmp"));
    WritePictureFile(FlatPicture(64, 48, 20), folder.Path("dark.bmp"));
  }

  nlohmann::json PictureOfPage(int number) const {
    const std::string page = ReadWhole(folder.Path("seen/index.html"));
    const std::string start =
        "<script type=\"application/json\" data-picture=\"" + std::to_string(number) + "\">";
    const std::size_t first = page.find(start) + start.size();
    return nlohmann::json::parse(page.substr(first, page.find("</script>", first) - first));
  }

  bool HasImage(int number, const std::string& name) const {
    return ReadWhole(folder.Path("seen/index.html"))
               .find("data-picture=\"" + std::to_string(number) + "\" data-image=\"" + name) !=
           std::string::npos;
  }
};

TEST_F(ReportCommand, ShowsPointsResidualsAndStages) {
  ASSERT_EQ(Run("detect target.bmp --report seen -o points.csv"), 0);
  const nlohmann::json picture = PictureOfPage(0);
  EXPECT_EQ(picture.at("name"), "target.bmp");
  EXPECT_EQ(picture.at("verdict"), "good");
  EXPECT_EQ(picture.at("found"), 48);
  EXPECT_EQ(picture.at("filled"), 0);
  EXPECT_EQ(picture.at("missing"), 0);
  EXPECT_LT(picture.at("worst"), 1);
  EXPECT_GT(picture.at("worst"), 0);
  EXPECT_EQ(picture.at("curves").at("rows").size(), 6u);
  for (const char* name : {"thumbnail", "view", "ProImage.bmp", "Sobel.bmp", "LineSegment.bmp"}) {
    EXPECT_TRUE(HasImage(0, name)) << name;
  }
  EXPECT_TRUE(LeftNothingTemporary());
}

TEST_F(ReportCommand, ChangesNothingElse) {
  ASSERT_EQ(Run("detect target.bmp dark.bmp"), 1);
  const std::string without = output;
  ASSERT_EQ(Run("detect target.bmp dark.bmp --report seen"), 1);
  EXPECT_EQ(output, without);
}

TEST_F(ReportCommand, ShowsWhereTheDetectionsDisagree) {
  WritePictureFile(RenderSmallTarget().picture, folder.Path("small.bmp"));
  ASSERT_EQ(Run("detect small.bmp --report seen"), 0);
  const nlohmann::json picture = PictureOfPage(0);
  EXPECT_EQ(picture.at("verdict"), "check");
  EXPECT_THAT(picture.at("message"), HasSubstr("marks were lost"));
  const int lost = picture.at("missing");
  EXPECT_GT(lost, 1);
  EXPECT_EQ(std::count_if(picture.at("disagreements").begin(), picture.at("disagreements").end(),
                          [](const nlohmann::json& each) { return each.at("what") == "lost"; }),
            lost);
}

TEST_F(ReportCommand, ShowsTheDirectDetection) {
  WritePictureFile(RenderSmallTarget().picture, folder.Path("target.bmp"));
  ASSERT_EQ(Run("detect target.bmp --precise --predict --report seen -o points.csv"), 0);
  const nlohmann::json picture = PictureOfPage(0);
  EXPECT_EQ(picture.at("found"), kSmallTargetRows * kSmallTargetColumns - 1);
  EXPECT_EQ(picture.at("filled"), 1);
  EXPECT_EQ(picture.at("missing"), 0);
  EXPECT_TRUE(picture.at("points").at(0).contains("covariance"));
  EXPECT_LT(picture.at("rms"), 0.05);
  EXPECT_FALSE(HasImage(0, "ProImage.bmp"));
}

TEST_F(ReportCommand, ShowsFailuresAlsoWhereAllFail) {
  folder.File("broken.bmp", "BM");
  ASSERT_EQ(Run("detect dark.bmp broken.bmp none.bmp --report seen"), 2);
  EXPECT_EQ(PictureOfPage(0).at("verdict"), "failed");
  EXPECT_THAT(PictureOfPage(0).at("failure").at("reason"), HasSubstr("no bright target"));
  EXPECT_EQ(PictureOfPage(0).at("failure").at("advice"), "expose longer");
  EXPECT_TRUE(HasImage(0, "view"));
  EXPECT_TRUE(HasImage(0, "ProImage.bmp"));
  EXPECT_EQ(PictureOfPage(1).at("failure").at("stage"), "reading the picture");
  EXPECT_FALSE(HasImage(1, "view"));
  EXPECT_EQ(PictureOfPage(2).at("name"), "none.bmp");
}

TEST_F(ReportCommand, RefusesWhatCannotBeWritten) {
  folder.File("file", "text");
  EXPECT_EQ(Run("detect target.bmp --report file/deep"), 2);
  EXPECT_THAT(errors, HasSubstr("report"));
  std::filesystem::create_directories(folder.Path("seen/index.html"));
  EXPECT_EQ(Run("detect target.bmp --report seen"), 2);
  EXPECT_THAT(errors, HasSubstr("index.html"));
}

TEST_F(ReportCommand, RefusesToGoOnWithATable) {
  EXPECT_EQ(Run("detect target.bmp --report seen --resume -o points.csv"), 2);
  EXPECT_THAT(errors, HasSubstr("--resume"));
  EXPECT_FALSE(folder.Has("seen"));
}

}  // namespace
}  // namespace quorvex::tests
