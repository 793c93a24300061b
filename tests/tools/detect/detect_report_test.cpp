#include "tools/detect/detect_report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>

#include "tests/support/test_files.h"
#include "tools/report/camera_curves.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Two rows of three marks, 100 px apart.
class DetectReport : public testing::Test {
 protected:
  DetectReport() {
    result.found.image = "a.png";
    result.found.width = 640;
    result.found.height = 480;
    result.direct.facts.pitch = 100;
    precise::CameraFacts& camera = result.direct.facts.camera;
    camera.rotation = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    camera.translation = {0, 0, 10};
    camera.focalLength = 1000;
    camera.centreX = 100;
    camera.centreY = 100;
    for (int row = 0; row < 2; ++row) {
      for (int column = 0; column < 3; ++column) {
        const PicturePlace place = SeenAt(camera, row, column);
        precise::Mark mark;
        mark.row = row;
        mark.column = column;
        mark.x = place.x + 0.01;
        mark.y = place.y;
        result.direct.marks.push_back(mark);
        result.found.points.push_back(
            {row * 3 + column + 1, row, column, place.x + 0.5, place.y - 0.25, PointKind::kSeen});
      }
    }
  }

  ReportedPicture Reported() const {
    return ReportedPictureOf(result, false, FlatPicture(640, 480, 9));
  }
  ReportedPicture ReportedDirect() const {
    return ReportedPictureOf(result, true, FlatPicture(640, 480, 9));
  }

  DetectionResult result;
};

TEST_F(DetectReport, MeasuresPointsFromWhereTheCameraSeesTheirMarks) {
  const ReportedPicture reported = Reported();
  EXPECT_EQ(reported.verdict, ReportVerdict::kGood);
  EXPECT_EQ(reported.missing, 0);
  EXPECT_EQ(reported.width, 640);
  ASSERT_EQ(reported.points.size(), 6u);
  for (const ReportedPoint& point : reported.points) {
    ASSERT_TRUE(point.residual);
    EXPECT_NEAR(point.residual->x, 0.5, 1e-9);
    EXPECT_NEAR(point.residual->y, -0.25, 1e-9);
  }
  EXPECT_EQ(reported.rowCurves.size(), 2u);
  EXPECT_EQ(reported.columnCurves.size(), 3u);
  EXPECT_FALSE(reported.facts.empty());
}

TEST_F(DetectReport, LabelsMayDifferFromThoseOfTheMarks) {
  for (ListedPoint& point : result.found.points) {
    point.row += 5;
  }
  EXPECT_NEAR(Reported().points[3].residual->x, 0.5, 1e-9);
}

TEST_F(DetectReport, APointThatWasSeenWithoutAMarkIsToBeChecked) {
  result.found.points[5].x += 60;
  const ReportedPicture reported = Reported();
  EXPECT_FALSE(reported.points[5].residual);
  EXPECT_EQ(reported.verdict, ReportVerdict::kCheck);
  ASSERT_EQ(reported.disagreements.size(), 1u);
  EXPECT_EQ(reported.disagreements[0].kind, DisagreementKind::kExtra);
  EXPECT_EQ(reported.disagreements[0].listed->id, 6);
}

TEST_F(DetectReport, APointThatWasFilledInNeedsNoMark) {
  result.found.points[5].x += 60;
  result.found.points[5].kind = PointKind::kFilled;
  EXPECT_TRUE(Reported().disagreements.empty());
}

TEST_F(DetectReport, CountsTheMarksThatWereLost) {
  result.found.points.pop_back();
  result.disagreements = {{DisagreementKind::kLost, ListedPoint{}, std::nullopt}};
  result.warning = "1 mark was lost";
  EXPECT_EQ(Reported().missing, 1);
  EXPECT_EQ(Reported().verdict, ReportVerdict::kCheck);
  EXPECT_EQ(Reported().message, "1 mark was lost");
}

TEST_F(DetectReport, CountsHolesWhereNothingElseTells) {
  result.found.points.erase(result.found.points.begin() + 1);
  result.direct = {};
  const ReportedPicture reported = Reported();
  EXPECT_EQ(reported.missing, 1);
  EXPECT_TRUE(reported.rowCurves.empty());
  EXPECT_TRUE(reported.facts.empty());
  EXPECT_FALSE(reported.points[0].residual);
}

TEST_F(DetectReport, AHoleBeyondThePictureIsNoneOfTheDirectDetection) {
  result.found.points.erase(result.found.points.begin() + 5);
  EXPECT_EQ(ReportedDirect().missing, 1);
  result.direct.facts.camera.centreX = 450;  // moves row 1, column 2 beyond the right side
  EXPECT_EQ(ReportedDirect().missing, 0);
}

TEST_F(DetectReport, AFailureHasNoPoints) {
  result.exitCode = kExitNothingFound;
  result.found.error = "the board is dark (Mask.bmp); expose longer";
  const ReportedPicture reported = Reported();
  EXPECT_EQ(reported.verdict, ReportVerdict::kFailed);
  EXPECT_TRUE(reported.points.empty());
  ASSERT_TRUE(reported.failure);
  EXPECT_EQ(reported.failure->stage, "inside of the board (Mask.bmp)");
  EXPECT_EQ(reported.failure->reason, "the board is dark (Mask.bmp)");
  EXPECT_EQ(reported.failure->advice, "expose longer");
}

TEST_F(DetectReport, APictureThatCannotBeReadHasNoSize) {
  result.exitCode = kExitBadInput;
  result.found.error = "cannot read a.png: it is empty";
  const ReportedPicture reported = ReportedPictureOf(result, false, std::nullopt);
  EXPECT_EQ(reported.width, 0);
  EXPECT_FALSE(reported.picture);
  EXPECT_EQ(reported.failure->stage, "reading the picture");
}

TEST_F(DetectReport, AdvisesForEveryStageOfTheDirectDetection) {
  result.exitCode = kExitNothingFound;
  result.found.error = "no target was found: some reason";
  for (const char* stage : {"input", "seed", "camera", "strokes", "check", "size"}) {
    result.stage = stage;
    EXPECT_NE(FailureOf(result).stage, "") << stage;
    EXPECT_NE(FailureOf(result).advice, "") << stage;
    EXPECT_EQ(FailureOf(result).reason, "no target was found: some reason");
  }
}

TEST(ReportedRun, TellsDetectionOptionsStagesAndColumns) {
  DetectOptions options;
  options.images = {"a.png", "b.png"};
  const ReportedRun run = ReportedRunOf(options);
  EXPECT_FALSE(run.isDirect);
  EXPECT_THAT(run.options, HasSubstr("--row-steps 300"));
  EXPECT_EQ(run.stages.size(), 14u);
  EXPECT_THAT(run.columns, ElementsAre("image", "id", "row", "col", "x", "y", "kind"));
  options.images.pop_back();
  options.isPrecise = true;
  const ReportedRun direct = ReportedRunOf(options);
  EXPECT_TRUE(direct.isDirect);
  EXPECT_TRUE(direct.stages.empty());
  EXPECT_THAT(direct.columns,
              ElementsAre("id", "row", "col", "x", "y", "kind", "cxx", "cxy", "cyy"));
}

}  // namespace
}  // namespace quorvex::tests
