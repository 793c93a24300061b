#include "tools/detect/precise_detection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "tests/support/small_target.h"
#include "tests/support/test_files.h"
#include "tools/pictures/picture_file.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::EndsWith;
using testing::HasSubstr;

constexpr int kAboveRowOne = 240;  // px; below all of row 0, above all of row 1
constexpr std::size_t kMarks = kSmallTargetRows * kSmallTargetColumns - 1;

Picture WithoutTop(Picture picture, int lines) {
  const std::ptrdiff_t gone = std::ptrdiff_t{lines} * picture.width;
  picture.pixels.erase(picture.pixels.begin(), picture.pixels.begin() + gone);
  picture.height -= lines;
  return picture;
}

class PreciseDetection : public testing::Test {
 protected:
  PreciseDetection() : target(RenderSmallTarget()) {
    WritePictureFile(target.picture, folder.Path("target.bmp"));
    WritePictureFile(FlatPicture(64, 48, 20), folder.Path("dark.bmp"));
  }

  const RenderedTarget target;
  TemporaryFolder folder;
};

TEST_F(PreciseDetection, ListsEveryVisibleMarkWithItsCovariance) {
  const DetectionResult result = DetectPrecisely(folder.Path("target.bmp"), {});
  ASSERT_EQ(result.exitCode, kExitSuccess) << result.message;
  EXPECT_EQ(result.found.width, 960);
  EXPECT_EQ(result.found.height, 800);
  ASSERT_EQ(result.found.points.size(), kMarks);
  for (const ListedPoint& p : result.found.points) {
    EXPECT_EQ(p.kind, PointKind::kMeasured);
    EXPECT_EQ(p.id, p.row * kSmallTargetColumns + p.col + 1);
    const auto truth = std::find_if(target.marks.begin(), target.marks.end(), [&](const auto& m) {
      return m.row == p.row && m.column == p.col;
    });
    ASSERT_NE(truth, target.marks.end());
    EXPECT_LT(std::hypot(truth->x - p.x, truth->y - p.y), 0.1);
    ASSERT_TRUE(p.covariance);
    EXPECT_GT(p.covariance->xx, 0.0);
    EXPECT_LT(p.covariance->xx, 0.01);
  }
}

TEST_F(PreciseDetection, ListsTheMissingPlaceOnDemand) {
  precise::Options options;
  options.predictsMissing = true;
  const DetectionResult result = DetectPrecisely(folder.Path("target.bmp"), options);
  ASSERT_EQ(result.found.points.size(), kMarks + 1);
  const ListedPoint& missing = result.found.points[kSmallTargetColumns + 2];
  EXPECT_EQ(missing.kind, PointKind::kPredicted);
  EXPECT_EQ(missing.row, 1);
  EXPECT_EQ(missing.col, 2);
}

TEST_F(PreciseDetection, TellsThePicturesFacts) {
  const DetectionResult result = DetectPrecisely(folder.Path("target.bmp"), {});
  const auto pitch = std::find_if(result.found.facts.begin(), result.found.facts.end(),
                                  [](const auto& fact) { return fact.first == "pitch"; });
  ASSERT_NE(pitch, result.found.facts.end());
  EXPECT_GT(pitch->second, 100);
  EXPECT_LT(pitch->second, 200);
}

TEST_F(PreciseDetection, ABoardOfKnownSizeThatIsCutHasTheBoardsLabels) {
  WritePictureFile(WithoutTop(target.picture, kAboveRowOne), folder.Path("cut.bmp"));
  precise::Options options;
  options.boardRows = kSmallTargetRows;
  options.boardColumns = kSmallTargetColumns;
  const DetectionResult result = DetectPrecisely(folder.Path("cut.bmp"), options);
  ASSERT_EQ(result.exitCode, kExitSuccess) << result.message;
  ASSERT_GT(result.found.points.size(), 10u);
  for (const ListedPoint& p : result.found.points) {
    EXPECT_EQ(p.id, p.row * kSmallTargetColumns + p.col + 1);
    const auto truth = std::find_if(target.marks.begin(), target.marks.end(), [&](const auto& m) {
      return m.row == p.row && m.column == p.col;
    });
    ASSERT_NE(truth, target.marks.end());
    EXPECT_LT(std::hypot(truth->x - p.x, truth->y - kAboveRowOne - p.y), 0.1);
  }
  EXPECT_EQ(result.warning, "");
  EXPECT_EQ(result.found.labels, "rows and columns are the board's");
  EXPECT_THAT(result.found.facts, testing::Contains(testing::Pair("fixed_rows", 1.0)));
}

TEST_F(PreciseDetection, SaysWhenLabelsMayBeOthers) {
  precise::Options options;
  options.boardRows = kSmallTargetRows + 1;
  options.boardColumns = kSmallTargetColumns;
  DetectionResult result = DetectPrecisely(folder.Path("target.bmp"), options);
  ASSERT_EQ(result.exitCode, kExitSuccess) << result.message;
  EXPECT_EQ(result.warning, "which of the board's 5 rows were found cannot be told");
  EXPECT_EQ(result.found.labels, "columns are the board's, rows count from the first one found");
  EXPECT_THAT(result.found.facts, testing::Contains(testing::Pair("fixed_rows", 0.0)));
  EXPECT_THAT(result.found.facts, testing::Contains(testing::Pair("fixed_columns", 1.0)));
  options.boardColumns = kSmallTargetColumns + 1;
  result = DetectPrecisely(folder.Path("target.bmp"), options);
  EXPECT_EQ(result.warning, "which of the board's 5 rows and 6 columns were found cannot be told");
  EXPECT_EQ(result.found.labels, "rows and columns count from the first ones found");
}

TEST_F(PreciseDetection, ABoardThatIsTooSmallIsAFailure) {
  precise::Options options;
  options.boardRows = kSmallTargetRows - 1;
  options.boardColumns = kSmallTargetColumns;
  const DetectionResult result = DetectPrecisely(folder.Path("target.bmp"), options);
  EXPECT_EQ(result.exitCode, kExitNothingFound);
  EXPECT_THAT(result.message,
              EndsWith("target.bmp: 4 rows x 5 columns were found on a board of 3 x 5"));
}

TEST_F(PreciseDetection, SaysWhyThereIsNothing) {
  const DetectionResult result = DetectPrecisely(folder.Path("dark.bmp"), {});
  EXPECT_EQ(result.exitCode, kExitNothingFound);
  EXPECT_THAT(result.message, HasSubstr("dark.bmp: no target was found: "));
}

TEST_F(PreciseDetection, NamesAMissingFile) {
  const DetectionResult result = DetectPrecisely(folder.Path("none.bmp"), {});
  EXPECT_EQ(result.exitCode, kExitBadInput);
  EXPECT_THAT(result.message, HasSubstr("none.bmp"));
}

}  // namespace
}  // namespace quorvex::tests
