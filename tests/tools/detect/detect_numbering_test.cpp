// The numbering that detect does after the detection.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/command_test.h"
#include "tools/detect/overlay.h"
#include "tools/lists/points_file.h"
#include "tools/lists/truth_file.h"
#include "tools/pictures/picture_file.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

constexpr int kRows = 4;
constexpr int kColumns = 5;

class DetectNumbering : public CommandTest {
 protected:
  DetectNumbering() {
    EXPECT_EQ(Run("render --quiet --preset easy --rows 4 --columns 5 --margin 26 --width 1024 "
                  "--height 840 -o target.bmp"),
              0)
        << errors;
    marks = ReadTruthFile(folder.Path("target.csv"));
  }

  // The points that a detection with these options writes.
  std::vector<ListedPoint> Detect(const std::string& options) {
    EXPECT_EQ(Run("detect target.bmp -o points.csv " + options), 0) << errors;
    return ReadPointsFile(folder.Path("points.csv")).front().points;
  }

  const TruthMark& MarkOf(const ListedPoint& p) const {
    for (const TruthMark& mark : marks) {
      if (std::hypot(p.x - mark.x, p.y - mark.y) < 1) return mark;
    }
    throw std::runtime_error("a point without a mark");
  }

  std::vector<TruthMark> marks;
};

TEST_F(DetectNumbering, RenumbersColumnByColumn) {
  const std::vector<ListedPoint> points = Detect("--renumber 4x5");
  ASSERT_EQ(points.size(), 20u);
  for (int i = 0; i < 20; ++i) {
    const ListedPoint& p = points[static_cast<std::size_t>(i)];
    EXPECT_EQ(p.col, i / kRows);
    EXPECT_EQ(p.row, i % kRows);
    EXPECT_EQ(p.row, MarkOf(p).row);
    EXPECT_EQ(p.col, MarkOf(p).column);
    EXPECT_EQ(p.id, p.row * kColumns + p.col + 1);
  }
}

TEST_F(DetectNumbering, RearrangesForTheLeftCameraFromTheLargestY) {
  const std::vector<ListedPoint> points = Detect("--rearrange left");
  ASSERT_EQ(points.size(), 20u);
  for (const ListedPoint& p : points) {
    EXPECT_EQ(p.row, MarkOf(p).column);
    EXPECT_EQ(p.col, kRows - 1 - MarkOf(p).row);
    EXPECT_EQ(p.id, p.row * kColumns + p.col + 1);
  }
}

TEST_F(DetectNumbering, RearrangesForTheRightCameraFromTheSmallestY) {
  const std::vector<ListedPoint> points = Detect("--renumber 4x5 --rearrange right");
  ASSERT_EQ(points.size(), 20u);
  for (const ListedPoint& p : points) {
    EXPECT_EQ(p.row, MarkOf(p).column);
    EXPECT_EQ(p.col, kColumns - 1 - MarkOf(p).row);
    EXPECT_EQ(p.id, p.row * kColumns + p.col + 1);
  }
}

TEST_F(DetectNumbering, GivesWhatThePointsCommandGives) {
  Detect("--renumber 4x5 --rearrange right");
  const std::string atOnce = ReadWhole(folder.Path("points.csv"));
  Detect("");
  EXPECT_EQ(Run("points renumber points.csv --rows 4 --columns 5 --in-place"), 0) << errors;
  EXPECT_EQ(Run("points rearrange points.csv right --in-place"), 0) << errors;
  EXPECT_EQ(ReadWhole(folder.Path("points.csv")), atOnce);
}

TEST_F(DetectNumbering, AnImageThatCannotBeRenumberedHasFailed) {
  EXPECT_EQ(Run("detect target.bmp --renumber 4x6 --output points.csv"), 1);
  EXPECT_EQ(errors,
            "quorvex: target.bmp: 20 points are not a grid of 4 rows x 6 columns, which has 24; "
            "detect it without --renumber and --rearrange, and correct the list with 'quorvex "
            "points'\n");
  EXPECT_FALSE(folder.Has("points.csv"));
  EXPECT_EQ(Run("detect target.bmp --renumber 5x4"), 1);
  EXPECT_THAT(errors, HasSubstr("do not form a grid of 5 rows x 4 columns"));
  EXPECT_EQ(output, "");
}

TEST_F(DetectNumbering, TheOverlayShowsTheFinalLabels) {
  Detect("--overlay found.png");
  const std::vector<ListedPoint> final = Detect("--rearrange left --overlay final.png");
  const Picture picture = ReadPictureFile(folder.Path("target.bmp"));
  WriteColorPng(DrawOverlay(picture, final), folder.Path("expected.png"));
  EXPECT_EQ(ReadWhole(folder.Path("final.png")), ReadWhole(folder.Path("expected.png")));
  EXPECT_NE(ReadWhole(folder.Path("final.png")), ReadWhole(folder.Path("found.png")));
}

TEST_F(DetectNumbering, RefusesBadOptionsBeforeTheDetection) {
  for (const char* options :
       {"--renumber 4", "--renumber 4x", "--renumber x5", "--renumber 4x5x6", "--renumber 4,5",
        "--renumber 0x5", "--renumber 4x-5", "--renumber 4x32769", "--renumber 99999999999x1",
        "--renumber ''", "--rearrange up", "--rearrange"}) {
    EXPECT_EQ(Run(std::string("detect target.bmp ") + options), 2) << options;
    EXPECT_NE(errors, "") << options;
    EXPECT_EQ(output, "") << options;
  }
}

}  // namespace
}  // namespace quorvex::tests
