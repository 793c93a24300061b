#include "tools/target/setup_measures.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tools/errors.h"
#include "tools/render/presets.h"
#include "tools/render/render_target.h"

namespace quorvex::tests {

using namespace tools;

namespace {

// Five pixels a millimetre everywhere.
RenderSettings Flat() {
  RenderSettings settings = PresetByName("fisheye");
  settings.width = 1000;
  settings.height = 800;
  settings.model = CameraModel::kPinhole;
  settings.focalLength = 1000;
  settings.distance = 200;
  settings.shiftX = settings.shiftY = settings.rotation = 0;
  settings.rows = 3;
  settings.columns = 4;
  settings.pitch = 30;
  settings.armLength = 12;
  settings.strokeWidth = 0.8;
  return settings;
}

constexpr BoardMargins kMargins = {20, 16};

TEST(SetupMeasures, OfAFlatView) {
  const SetupMeasures measures = MeasureSetup(Flat(), kMargins);
  EXPECT_EQ(measures.marks, 12);
  EXPECT_EQ(measures.marksInPicture, 12);
  EXPECT_EQ(measures.rowsInPicture, 3);
  EXPECT_EQ(measures.columnsInPicture, 4);
  for (const auto& [spread, length] :
       {std::pair(measures.spacing, 150.0), {measures.arms, 60.0}, {measures.strokes, 4.0}}) {
    EXPECT_NEAR(spread.smallest, length, 1e-6);
    EXPECT_NEAR(spread.median, length, 1e-6);
    EXPECT_NEAR(spread.largest, length, 1e-6);
  }
  EXPECT_TRUE(measures.isEdgeInPicture);
  EXPECT_NEAR(measures.border, 80, 1e-6);        // below and above, where it is narrower
  EXPECT_NEAR(measures.markToMiddle, 75, 1e-6);  // the middle is between two columns
  EXPECT_NEAR(measures.strokeToMiddle, 15, 1e-6);
}

TEST(SetupMeasures, ATurnedBoardMeasuresTheSame) {
  RenderSettings settings = Flat();
  settings.rotation = 20;
  const SetupMeasures measures = MeasureSetup(settings, {10, 10});
  EXPECT_NEAR(measures.strokes.smallest, 4, 1e-6);
  EXPECT_NEAR(measures.arms.largest, 60, 1e-6);
  EXPECT_NEAR(measures.border, 50, 1e-6);
}

TEST(SetupMeasures, AFisheyeShrinksWhatIsOffTheAxis) {
  RenderSettings settings = Flat();
  settings.model = CameraModel::kEquidistant;
  settings.shiftX = 15;
  settings.shiftY = 30;  // a mark of row 0 on the axis
  const SetupMeasures measures = MeasureSetup(settings, kMargins);
  EXPECT_NEAR(measures.strokes.largest, 4, 1e-4);
  EXPECT_NEAR(measures.spacing.largest, 1000 * std::atan(0.15), 1e-6);
  EXPECT_NEAR(measures.arms.largest, 1000 * std::atan(0.06), 1e-6);
  // Across a stroke that runs round the axis, 60 mm off it.
  EXPECT_NEAR(measures.strokes.smallest, 4 / (1 + 0.09), 0.1);
  EXPECT_LT(measures.spacing.smallest, measures.spacing.median);
}

TEST(SetupMeasures, CountsWhatIsInThePicture) {
  RenderSettings settings = Flat();
  settings.shiftX = 60;  // the last column at x = 499.5 + 5 * 105
  const SetupMeasures measures = MeasureSetup(settings, kMargins);
  EXPECT_EQ(measures.marks, 12);
  EXPECT_EQ(measures.marksInPicture, 9);
  EXPECT_EQ(measures.rowsInPicture, 3);
  EXPECT_EQ(measures.columnsInPicture, 3);
  EXPECT_FALSE(measures.isEdgeInPicture);
  EXPECT_EQ(measures.border, 0);
}

TEST(SetupMeasures, NothingInSight) {
  RenderSettings settings = Flat();
  settings.shiftX = 1000;
  const SetupMeasures measures = MeasureSetup(settings, kMargins);
  EXPECT_EQ(measures.marksInPicture, 0);
  EXPECT_EQ(measures.spacing.median, 0);
}

TEST(SetupMeasures, TheEdgeIsThatOfTheMarginsGiven) {
  RenderSettings settings = Flat();
  EXPECT_TRUE(MeasureSetup(settings, {20, 40}).isEdgeInPicture);
  EXPECT_FALSE(MeasureSetup(settings, {20, 60}).isEdgeInPicture);
  EXPECT_FALSE(MeasureSetup(settings, {60, 20}).isEdgeInPicture);
}

TEST(SetupMeasures, TheMiddleOnAStroke) {
  RenderSettings settings = Flat();
  settings.shiftX = 20;  // 5 mm left of the mark that was 15 mm to the left
  EXPECT_NEAR(MeasureSetup(settings, kMargins).strokeToMiddle, 0, 1e-6);
  settings.shiftY = 2;
  EXPECT_NEAR(MeasureSetup(settings, kMargins).strokeToMiddle, 5 * 1.6, 1e-6);
}

TEST(SetupMeasures, BadSettingsAreRefused) {
  RenderSettings settings = Flat();
  settings.focalLength = 0;
  EXPECT_THROW(MeasureSetup(settings, kMargins), InputError);
  settings = Flat();
  settings.tiltX = 80;
  settings.shiftY = 2000;
  EXPECT_THROW(MeasureSetup(settings, kMargins), InputError);
}

}  // namespace
}  // namespace quorvex::tests
