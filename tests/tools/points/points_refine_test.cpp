// Points of a list measured on their picture.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "tests/support/command_test.h"
#include "tests/support/small_target.h"
#include "tools/lists/points_file.h"
#include "tools/pictures/picture_file.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

class PointsRefine : public CommandTest {
 protected:
  PointsRefine() : target(RenderSmallTarget()) {
    WritePictureFile(target.picture, folder.Path("target.bmp"));
    WritePictureFile(FlatPicture(64, 48, 20), folder.Path("dark.bmp"));
    std::vector<ListedPoint> points;
    for (const TruthMark& mark : target.marks) {
      points.push_back(
          {static_cast<int>(points.size()) + 1, mark.row, mark.column, mark.x + 1.5, mark.y - 1});
    }
    list.points = points;
    folder.File("points.csv", FormatPoints({list}, PointsFormat::kCsv, false));
  }

  const RenderedTarget target;
  PointsOfImage list;
};

TEST_F(PointsRefine, MovesPointsToTheirMarks) {
  ASSERT_EQ(Run("points refine points.csv target.bmp -o refined.csv"), 0) << errors;
  const std::vector<ListedPoint> refined = ReadPointsFile(folder.Path("refined.csv")).at(0).points;
  ASSERT_EQ(refined.size(), target.marks.size());
  for (std::size_t i = 0; i < refined.size(); ++i) {
    const TruthMark& mark = target.marks[i];
    EXPECT_EQ(refined[i].row, mark.row);
    EXPECT_EQ(refined[i].col, mark.column);
    if (mark.isMissing) {
      EXPECT_EQ(refined[i].kind, PointKind::kUnknown);
      EXPECT_NEAR(refined[i].x, mark.x + 1.5, 1e-5);
      continue;
    }
    EXPECT_EQ(refined[i].kind, PointKind::kMeasured);
    EXPECT_LT(std::hypot(refined[i].x - mark.x, refined[i].y - mark.y), 0.1) << i;
    EXPECT_TRUE(refined[i].covariance);
  }
  EXPECT_THAT(errors, HasSubstr("quorvex: points.csv: point 8 at "));
  EXPECT_THAT(errors, HasSubstr(" stays: "));
}

TEST_F(PointsRefine, ChangesNothingWithoutAMark) {
  EXPECT_EQ(Run("points refine points.csv dark.bmp --in-place"), 1);
  EXPECT_THAT(errors, HasSubstr("points.csv: no point could be refined"));
  EXPECT_EQ(ReadWhole(folder.Path("points.csv")), FormatPoints({list}, PointsFormat::kCsv, false));
}

TEST_F(PointsRefine, RefusesAnotherPicturesPoints) {
  list.image = "target.bmp";
  list.width = 640;
  list.height = 480;
  folder.File("points.json", FormatPoints({list}, PointsFormat::kJson, false));
  EXPECT_EQ(Run("points refine points.json target.bmp"), 2);
  EXPECT_THAT(errors, HasSubstr("the points are of a picture of 640 x 480"));
  EXPECT_EQ(Run("points refine points.csv none.bmp"), 2);
}

}  // namespace
}  // namespace quorvex::tests
