#include "tools/detect/point_judge.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

#include "tests/support/command_test.h"
#include "tools/lists/truth_file.h"
#include "tools/pictures/picture_file.h"
#include "tools/render/presets.h"
#include "tools/render/render_target.h"

namespace quorvex::tests {

using namespace tools;

namespace {

// Pixels from a mark to its point. In between it may be called either.
constexpr double kOnMark = 1.5;
constexpr double kOffMark = 6;

class PointKinds : public CommandTest {
 protected:
  // Detects the points of a rendered board, each of which must be called what the truth says, and
  // returns how many there are.
  std::size_t CheckKinds(const RenderSettings& settings) {
    const RenderedTarget target = RenderTarget(settings);
    WritePictureFile(target.picture, folder.Path("p.bmp"));
    EXPECT_EQ(Run("detect p.bmp -o points.csv"), 0) << errors;
    const std::vector<ListedPoint> points = ReadPointsFile(folder.Path("points.csv"))[0].points;
    for (const ListedPoint& p : points) {
      const TruthMark mark = NearestMark(target.marks, p);
      const double distance = std::hypot(p.x - mark.x, p.y - mark.y);
      if (!mark.isMissing && distance > kOnMark && distance < kOffMark) continue;
      const bool isSeen = !mark.isMissing && distance <= kOnMark;
      EXPECT_EQ(JudgePoint(target.picture, p.x, p.y),
                isSeen ? PointKind::kSeen : PointKind::kFilled)
          << "mark " << mark.row << ", " << mark.column;
    }
    return points.size();
  }

  static TruthMark NearestMark(const std::vector<TruthMark>& marks, const ListedPoint& p) {
    return *std::min_element(
        marks.begin(), marks.end(), [&](const TruthMark& a, const TruthMark& b) {
          return std::hypot(p.x - a.x, p.y - a.y) < std::hypot(p.x - b.x, p.y - b.y);
        });
  }
};

TEST_F(PointKinds, OfAllPresets) {
  for (const Preset& preset : AllPresets()) {
    SCOPED_TRACE(preset.name);
    EXPECT_EQ(CheckKinds(preset.settings),
              static_cast<std::size_t>(preset.settings.rows * preset.settings.columns));
  }
}

// A few marks are lost there, and a few points are off their marks.
TEST_F(PointKinds, HoldAtTheLimitsOfAGoodPicture) {
  RenderSettings settings = PresetByName("dropped");
  settings.noiseSigma = 2.5;
  EXPECT_GT(CheckKinds(settings), 70u);
  settings.blurSigma = 1.5;
  settings.noiseSigma = 1.5;
  EXPECT_GT(CheckKinds(settings), 70u);
}

// A flat board with what `isInk` takes for dark, seen at (50, 50).
Picture Draw(const std::function<bool(double x, double y)>& isInk) {
  Picture picture = FlatPicture(101, 101, 180);
  for (int y = 0; y < 101; ++y) {
    for (int x = 0; x < 101; ++x) {
      if (isInk(x - 50, y - 50)) picture.At(x, y) = 20;
    }
  }
  return picture;
}

bool IsCross(double x, double y) { return std::min(std::abs(x), std::abs(y)) < 1.5; }

TEST(JudgePoint, NeedsTheCrossingNearby) {
  const Picture picture = Draw(IsCross);
  EXPECT_EQ(JudgePoint(picture, 50, 50), PointKind::kSeen);
  EXPECT_EQ(JudgePoint(picture, 51.5, 48.5), PointKind::kSeen);
  EXPECT_EQ(JudgePoint(picture, 56, 50), PointKind::kFilled);
  EXPECT_EQ(JudgePoint(picture, 56, 56), PointKind::kFilled);
}

TEST(JudgePoint, TakesASlantedMark) {
  EXPECT_EQ(JudgePoint(Draw([](double x, double y) { return IsCross(x + y * 0.7, y); }), 50, 50),
            PointKind::kSeen);
}

TEST(JudgePoint, OneStrokeIsNoMark) {
  EXPECT_EQ(JudgePoint(Draw([](double x, double) { return std::abs(x) < 1.5; }), 50, 50),
            PointKind::kFilled);
}

TEST(JudgePoint, ASpotIsNoMark) {
  EXPECT_EQ(JudgePoint(Draw([](double x, double y) { return std::hypot(x, y) < 3.5; }), 50, 50),
            PointKind::kFilled);
}

TEST(JudgePoint, TheEdgeOfTheBoardIsNoMark) {
  EXPECT_EQ(JudgePoint(Draw([](double x, double) { return x > 0; }), 50, 50), PointKind::kFilled);
}

TEST(JudgePoint, OutsideThePictureThereIsNoMark) {
  const Picture picture = Draw(IsCross);
  EXPECT_EQ(JudgePoint(picture, -1, 50), PointKind::kFilled);
  EXPECT_EQ(JudgePoint(picture, 50, 1e9), PointKind::kFilled);
  EXPECT_EQ(JudgePoint(picture, NAN, 50), PointKind::kFilled);
  EXPECT_EQ(JudgePoint(FlatPicture(1, 1, 9), 0, 0), PointKind::kFilled);
}

}  // namespace
}  // namespace quorvex::tests
