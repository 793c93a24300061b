// What is said of a set-up, held to what the detections find in its rendered picture.
#include "tools/target/setup_verdict.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/run_program.h"
#include "tests/support/temporary_folder.h"
#include "tools/compare/compare_points.h"
#include "tools/errors.h"
#include "tools/lists/points_file.h"
#include "tools/pictures/picture_file.h"
#include "tools/render/presets.h"
#include "tools/render/render_target.h"

namespace quorvex::tests {

using namespace tools;
using testing::Contains;
using testing::HasSubstr;

namespace {

// A pixel is a millimetre on the axis, since the distance is the focal length.
RenderSettings BoardAt(int side, double focalLength, int lines, double pitch, double arm,
                       double stroke) {
  RenderSettings settings = PresetByName("fisheye");
  settings.width = settings.height = side;
  settings.focalLength = settings.distance = focalLength;
  settings.rows = settings.columns = lines;
  settings.pitch = pitch;
  settings.armLength = arm;
  settings.strokeWidth = stroke;
  settings.margin = pitch;
  settings.rotation = 20;
  settings.shiftX = settings.shiftY = pitch / 4;
  return settings;
}

constexpr double kReach = 3;    // pixels; farther off is not found
constexpr double kMost = 0.85;  // of the marks: all, or all but a few

struct Case {
  std::string name;
  RenderSettings settings;
  std::string plainProblem;    // part of a sentence; empty where the marks are found
  std::string preciseProblem;  // likewise
};

class SetupVerdict : public testing::Test {
 protected:
  // Its part of the marks, rightly labelled.
  double PartFound(const std::vector<TruthMark>& truth, const std::string& options) const {
    const int code = RunProgram(
        {QUORVEX_COMMAND, SplitAtBlanks("detect a.bmp -o points.csv " + options), folder.Path()});
    EXPECT_NE(code, kExitBadInput);
    if (code != kExitSuccess) {
      return 0;
    }
    const auto images = ReadPointsFile(folder.Path("points.csv"));
    const Comparison comparison = ComparePoints(images.at(0).points, truth, kReach);
    const int mislabelled = comparison.labels == Labels::kOffset ? 0 : comparison.wrongLabels;
    return static_cast<double>(comparison.found.count - mislabelled) /
           static_cast<double>(truth.size());
  }

  static void ExpectVerdict(const Problems& problems, const std::string& expected) {
    if (expected.empty()) {
      EXPECT_THAT(problems, testing::IsEmpty());
    } else {
      EXPECT_THAT(problems, Contains(HasSubstr(expected)));
    }
  }

  void ExpectTruth(const Case& each) const {
    SCOPED_TRACE(each.name);
    const RenderSettings& settings = each.settings;
    const SetupMeasures measures = MeasureSetup(settings, {settings.margin, settings.margin});
    ExpectVerdict(ProblemsOfPlainDetection(settings, measures), each.plainProblem);
    ExpectVerdict(ProblemsOfPreciseDetection(settings, measures), each.preciseProblem);
    const RenderedTarget target = RenderTarget(settings);
    WritePictureFile(target.picture, folder.Path("a.bmp"));
    const double plain = PartFound(target.marks, "--no-check");
    const double precise = PartFound(target.marks, "--precise");
    if (each.plainProblem.empty()) {
      EXPECT_GE(plain, kMost);
    } else {
      EXPECT_LT(plain, kMost);
    }
    EXPECT_EQ(precise == 1, each.preciseProblem.empty()) << precise;
  }

  TemporaryFolder folder;
};

TEST_F(SetupVerdict, WithinReachOfBoth) {
  ExpectTruth({"6 x 6 marks", BoardAt(1300, 1200, 6, 150, 64, 3), "", ""});
  ExpectTruth({"thin strokes", BoardAt(1300, 1200, 6, 150, 64, 0.9), "", ""});
  ExpectTruth({"far apart", BoardAt(2000, 1500, 4, 280, 84, 3), "", ""});
}

TEST_F(SetupVerdict, AFisheyeBoard) {
  RenderSettings settings = PresetByName("fisheye");
  settings.rotation = 20;
  settings.shiftX = settings.shiftY = 10;
  ExpectTruth({"fisheye", settings, "", ""});
}

TEST_F(SetupVerdict, WithinReachOfThePreciseOneAlone) {
  ExpectTruth({"near each other", BoardAt(1200, 1000, 6, 100, 43, 3),
               "neighbours come as near as 93 px", ""});
  ExpectTruth(
      {"far apart", BoardAt(2000, 1500, 4, 420, 126, 3), "neighbours are up to 416 px apart", ""});
  ExpectTruth(
      {"thick strokes", BoardAt(1300, 1200, 6, 150, 64, 5), "strokes are up to 5.0 px wide", ""});
  ExpectTruth({"short arms", BoardAt(1000, 1000, 6, 120, 18, 4), "arms get as short as 15.", ""});
  ExpectTruth({"small", BoardAt(700, 500, 9, 21, 8.8, 2), "neighbours come as near as", ""});
  ExpectTruth({"few", BoardAt(600, 700, 3, 100, 40, 3), "the board has 3 x 3 marks", ""});
  RenderSettings turned = BoardAt(1300, 1200, 6, 150, 64, 3);
  turned.rotation = 40;
  ExpectTruth({"turned", turned, "the board is turned by 40 degrees", ""});
}

TEST_F(SetupVerdict, BeyondReachOfBoth) {
  ExpectTruth({"too small", BoardAt(700, 500, 9, 16, 6.7, 2), "neighbours come as near as",
               "neighbours are 16 px apart at most"});
  ExpectTruth({"hair", BoardAt(1000, 1000, 6, 120, 50, 0.1), "strokes get as thin as 0.0",
               "strokes are 0.096 px wide"});
  ExpectTruth({"bars", BoardAt(1200, 1000, 6, 120, 50, 28), "strokes are up to 28.0 px wide",
               "strokes are up to 28 px wide"});
  ExpectTruth({"bars for their pitch", BoardAt(700, 1000, 4, 60, 25, 15),
               "strokes are up to 15.0 px wide", "strokes are 0.25 pitches wide"});
  ExpectTruth({"hardly arms", BoardAt(1000, 1000, 6, 120, 9.6, 4), "arms get as short as",
               "arms are 0.08 pitches long"});
  RenderSettings row = BoardAt(700, 1000, 6, 100, 40, 3);
  row.rows = 1;
  ExpectTruth({"one row", row, "the board has 1 x 6 marks",
               "6 marks of 1 rows and 6 columns are in the picture"});
}

TEST_F(SetupVerdict, OtherLenses) {
  for (const CameraModel model :
       {CameraModel::kEquisolid, CameraModel::kStereographic, CameraModel::kPinhole}) {
    RenderSettings settings = BoardAt(1700, 1200, 6, 150, 64, 3);
    settings.model = model;
    ExpectTruth({"a lens", settings, "", ""});
  }
}

// Sentences that say what to change are right about it: what they ask for is no problem any more.
TEST_F(SetupVerdict, WhatIsAskedForHelps) {
  const auto problems = [](const RenderSettings& settings) {
    return ProblemsOfPlainDetection(settings, MeasureSetup(settings, {150, 150}));
  };
  RenderSettings settings = BoardAt(1300, 1200, 6, 150, 64, 5);
  EXPECT_EQ(
      problems(settings),
      Problems{"strokes are up to 5.0 px wide, and 3.6 px are the most: take strokes of 3.6 mm"});
  settings.strokeWidth = 3.6;
  EXPECT_THAT(problems(settings), testing::IsEmpty());
}

TEST_F(SetupVerdict, OutOfThePicture) {
  RenderSettings settings = BoardAt(1000, 1200, 6, 150, 64, 3);
  settings.shiftX = 150;
  const SetupMeasures measures = MeasureSetup(settings, {150, 150});
  EXPECT_THAT(ProblemsOfPlainDetection(settings, measures),
              Contains(HasSubstr("marks are outside the picture: move the board away")));
  EXPECT_THAT(ProblemsOfPreciseDetection(settings, measures), testing::IsEmpty());
  settings = BoardAt(1100, 1200, 6, 150, 64, 3);
  EXPECT_THAT(ProblemsOfPlainDetection(settings, MeasureSetup(settings, {150, 150})),
              Contains(HasSubstr("the board's edge is not all in the picture")));
  settings = BoardAt(1300, 1200, 6, 150, 64, 3);
  EXPECT_THAT(ProblemsOfPlainDetection(settings, MeasureSetup(settings, {66, 150})),
              Contains(HasSubstr("px beyond its outermost marks, and more than 60 px are needed")));
}

}  // namespace
}  // namespace quorvex::tests
