#include "tools/report/report_json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace quorvex::tests {

using namespace tools;

namespace {

using Json = nlohmann::json;
using testing::HasSubstr;
using testing::Not;

Json Parsed(const ReportedPicture& picture) {
  return Json::parse(PictureJson(picture, {"data:,", 100, 50}));
}

ReportedPicture PictureOfThree() {
  ReportedPicture picture;
  picture.name = "a.png";
  picture.width = 200;
  picture.height = 100;
  picture.points = {{{1, 0, 0, 10.123456789, 20, PointKind::kSeen}, PicturePlace{3, -4}},
                    {{2, 0, 1, 30, 20, PointKind::kSeen}, PicturePlace{0, 1}},
                    {{3, 0, 2, 50, 20, PointKind::kFilled}, PicturePlace{100, 100}}};
  return picture;
}

TEST(PictureJson, CountsAndMeasuresWhatWasSeen) {
  const Json json = Parsed(PictureOfThree());
  EXPECT_EQ(json.at("found"), 2);
  EXPECT_EQ(json.at("filled"), 1);
  EXPECT_EQ(json.at("worst"), 5.0);
  EXPECT_EQ(json.at("rms"), 3.606);  // of 5 and 1
  EXPECT_TRUE(json.at("missing").is_null());
}

TEST(PictureJson, HasPositionsAsListsHaveThem) {
  const Json point = Parsed(PictureOfThree()).at("points").at(0);
  EXPECT_EQ(point.at("x"), 10.1234568);
  EXPECT_EQ(point.at("kind"), "seen");
  EXPECT_EQ(point.at("residual"), Json({3, -4}));
  EXPECT_FALSE(point.contains("covariance"));
}

TEST(PictureJson, HasNothingToMeasureWithoutResiduals) {
  ReportedPicture picture = PictureOfThree();
  for (ReportedPoint& point : picture.points) {
    point.residual.reset();
  }
  picture.missing = 4;
  const Json json = Parsed(picture);
  EXPECT_TRUE(json.at("worst").is_null());
  EXPECT_TRUE(json.at("rms").is_null());
  EXPECT_EQ(json.at("missing"), 4);
  EXPECT_FALSE(json.at("points").at(0).contains("residual"));
}

TEST(PictureJson, TellsVerdictFailureAndWhatIsKept) {
  ReportedPicture picture;
  picture.verdict = ReportVerdict::kFailed;
  picture.failure = ReportedFailure{"a stage", "a reason", "advice"};
  const Json json = Json::parse(PictureJson(picture, {}));
  EXPECT_EQ(json.at("verdict"), "failed");
  EXPECT_EQ(json.at("failure").at("stage"), "a stage");
  EXPECT_EQ(json.at("failure").at("reason"), "a reason");
  EXPECT_EQ(json.at("failure").at("advice"), "advice");
  EXPECT_FALSE(json.contains("kept"));
  EXPECT_EQ(Parsed(picture).at("kept").at("width"), 100);
  picture.verdict = ReportVerdict::kCheck;
  EXPECT_EQ(Parsed(picture).at("verdict"), "check");
}

TEST(PictureJson, NamesDisagreements) {
  ReportedPicture picture;
  const ListedPoint mark{-1, 2, 3, 40, 50};
  const ListedPoint listed{7, 2, 4, 41, 50};
  picture.disagreements = {{DisagreementKind::kLabel, mark, listed},
                           {DisagreementKind::kLost, mark, std::nullopt},
                           {DisagreementKind::kOff, mark, listed},
                           {DisagreementKind::kExtra, std::nullopt, listed}};
  const Json json = Parsed(picture).at("disagreements");
  ASSERT_EQ(json.size(), 4u);
  EXPECT_EQ(json.at(0).at("what"), "label");
  EXPECT_EQ(json.at(0).at("col"), 3);
  EXPECT_EQ(json.at(0).at("listed").at("col"), 4);
  EXPECT_EQ(json.at(1).at("what"), "lost");
  EXPECT_FALSE(json.at(1).contains("listed"));
  EXPECT_EQ(json.at(2).at("what"), "off");
  EXPECT_EQ(json.at(3).at("what"), "extra");
  EXPECT_FALSE(json.at(3).contains("row"));
}

TEST(PictureJson, NoTextEndsTheElementThatHoldsIt) {
  ReportedPicture picture;
  picture.name = "</script><script>alert(1)</script><!--";
  picture.message = "<b>\"'&";
  const std::string text = PictureJson(picture, {});
  EXPECT_THAT(text, Not(HasSubstr("<")));
  EXPECT_EQ(Json::parse(text).at("name"), picture.name);
  EXPECT_EQ(Json::parse(text).at("message"), picture.message);
}

TEST(PictureJson, HasNamesThatAreNotUtf8) {
  ReportedPicture picture;
  picture.name = "bild-\xE4.png";
  EXPECT_EQ(Json::parse(PictureJson(picture, {})).at("name"), "bild-\xEF\xBF\xBD.png");
}

TEST(RunJson, TellsTheDetectionAndItsStages) {
  ReportedRun run;
  run.options = "--row-span 20";
  run.stages = {{"A.bmp", "shows", "healthy"}};
  run.columns = {"id", "row"};
  const Json json = Json::parse(RunJson(run, "1.2"));
  EXPECT_EQ(json.at("version"), "1.2");
  EXPECT_EQ(json.at("detection"), "host");
  EXPECT_EQ(json.at("stages").at(0).at("healthy"), "healthy");
  EXPECT_EQ(json.at("columns"), Json({"id", "row"}));
  run.isDirect = true;
  EXPECT_EQ(Json::parse(RunJson(run, "1.2")).at("detection"), "direct");
}

}  // namespace
}  // namespace quorvex::tests
