// What a detection needs of a picture, held against every preset.
#include "tools/render/presets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "tools/errors.h"
#include "tools/render/board.h"
#include "tools/render/camera.h"
#include "tools/render/render_target.h"

namespace quorvex::tests {

using namespace tools;

namespace {

constexpr double kMinSpacing = 125;         // pixels from a mark to its neighbour
constexpr double kMinArm = 50;              // pixels
constexpr double kMaxCentreDistance = 240;  // pixels from the picture's middle to a mark
constexpr double kMinCentreClearance = 8;   // pixels from the picture's middle to a stroke's line
constexpr double kMinEdgeDistance = 60;     // pixels from a mark's centre to the board's edge
constexpr double kMinTipClearance = 12;     // pixels from an arm's tip to the board's edge
constexpr double kDarkLevel = 80;           // grey level; below is a mark or the background
constexpr double kMaxDarkWidth = 3.6;       // pixels across a stroke
constexpr double kMaxStrokeLevel = 75;      // grey level in the middle of a stroke

double Distance(const PixelPoint& a, const PixelPoint& b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

class Presets : public testing::TestWithParam<Preset> {
 protected:
  const RenderSettings settings = GetParam().settings;
  const Camera camera{settings};
  const Board board{settings};
  const std::vector<TruthMark> marks = ProjectMarks(settings);

  PixelPoint Seen(const BoardPoint& point) const {
    return camera.Project(board.ToCamera(point)).value();
  }

  PixelPoint SeenMark(int row, int column) const { return Seen(board.MarkCentre(row, column)); }

  // A point of an arm; `part` runs from 0 at the centre to 1 at the tip.
  BoardPoint OnArm(const TruthMark& mark, int arm, double part) const {
    constexpr int kDirections[4][2] = {{1, 0}, {-1, 0}, {0, 1}, {0, -1}};
    const BoardPoint centre = board.MarkCentre(mark.row, mark.column);
    return {centre.x + kDirections[arm][0] * part * settings.armLength,
            centre.y + kDirections[arm][1] * part * settings.armLength};
  }

  std::vector<PixelPoint> SeenEdge() const {
    constexpr int kSteps = 1000;
    const BoardPoint first = board.MarkCentre(0, 0);
    const double x = settings.margin - first.x;
    const double y = settings.margin - first.y;
    std::vector<PixelPoint> edge;
    for (int i = 0; i <= kSteps; ++i) {
      const double part = 2.0 * i / kSteps - 1;
      for (const double side : {-1.0, 1.0}) {
        edge.push_back(Seen({part * x, side * y}));
        edge.push_back(Seen({side * x, part * y}));
      }
    }
    return edge;
  }
};

TEST_P(Presets, MarksAreFarEnoughApart) {
  for (const TruthMark& mark : marks) {
    if (mark.column + 1 < settings.columns) {
      EXPECT_GT(Distance({mark.x, mark.y}, SeenMark(mark.row, mark.column + 1)), kMinSpacing);
    }
    if (mark.row + 1 < settings.rows) {
      EXPECT_GT(Distance({mark.x, mark.y}, SeenMark(mark.row + 1, mark.column)), kMinSpacing);
    }
  }
}

TEST_P(Presets, ArmsAreLongEnough) {
  for (const TruthMark& mark : marks) {
    for (int arm = 0; arm < 4; ++arm) {
      EXPECT_GE(Distance({mark.x, mark.y}, Seen(OnArm(mark, arm, 1))), kMinArm)
          << mark.row << "," << mark.column;
    }
  }
}

TEST_P(Presets, MiddleOfThePictureLiesBetweenTheStrokes) {
  const PixelPoint middle = {settings.width / 2.0, settings.height / 2.0};
  const auto nearest =
      std::min_element(marks.begin(), marks.end(), [&](const TruthMark& a, const TruthMark& b) {
        return Distance(middle, {a.x, a.y}) < Distance(middle, {b.x, b.y});
      });
  EXPECT_LT(Distance(middle, {nearest->x, nearest->y}), kMaxCentreDistance);
  EXPECT_FALSE(nearest->isMissing);
  BoardPoint point;
  ASSERT_TRUE(board.Intersect(camera.Ray(middle).value(), point));
  const BoardPoint mark = board.MarkCentre(nearest->row, nearest->column);
  EXPECT_GT(Distance(middle, Seen({mark.x, point.y})), kMinCentreClearance);
  EXPECT_GT(Distance(middle, Seen({point.x, mark.y})), kMinCentreClearance);
}

TEST_P(Presets, BoardsEdgeIsInThePictureAndClearOfTheMarks) {
  const std::vector<PixelPoint> edge = SeenEdge();
  const auto distanceToEdge = [&](const PixelPoint& point) {
    double least = 1e9;
    for (const PixelPoint& edgePoint : edge) {
      least = std::min(least, Distance(point, edgePoint));
    }
    return least;
  };
  for (const PixelPoint& point : edge) {
    EXPECT_TRUE(point.x > 2 && point.x < settings.width - 3 && point.y > 2 &&
                point.y < settings.height - 3)
        << point.x << ", " << point.y;
  }
  for (const TruthMark& mark : marks) {
    EXPECT_GT(distanceToEdge({mark.x, mark.y}), kMinEdgeDistance);
    for (int arm = 0; arm < 4; ++arm) {
      EXPECT_GT(distanceToEdge(Seen(OnArm(mark, arm, 1))), kMinTipClearance);
    }
  }
}

TEST_P(Presets, LightSeparatesBoardAndBackground) {
  const double change = std::abs(settings.gradientX) + std::abs(settings.gradientY);
  EXPECT_GE(settings.boardLevel * (1 - change), 120);
  EXPECT_LT(settings.backgroundLevel * (1 + change) + 5 * settings.noiseSigma, kDarkLevel);
  EXPECT_LE(settings.noiseSigma, 2.5);
  EXPECT_GE(std::abs(settings.rotation), 5);
  EXPECT_LE(std::abs(settings.rotation), 20);
}

TEST_P(Presets, MissingMarksAreApartFromEachOther) {
  for (const GridPosition& a : settings.missing) {
    for (const GridPosition& b : settings.missing) {
      const int apart = std::max(std::abs(a.row - b.row), std::abs(a.column - b.column));
      EXPECT_TRUE(&a == &b || apart >= 2);
    }
    const int fromCentre =
        std::max(std::abs(a.row - settings.rows / 2), std::abs(a.column - settings.columns / 2));
    EXPECT_GE(fromCentre, 2);
  }
}

double Interpolate(const Picture& picture, const PixelPoint& point) {
  const int x = static_cast<int>(point.x);
  const int y = static_cast<int>(point.y);
  const double right = point.x - x;
  const double down = point.y - y;
  return (picture.At(x, y) * (1 - right) + picture.At(x + 1, y) * right) * (1 - down) +
         (picture.At(x, y + 1) * (1 - right) + picture.At(x + 1, y + 1) * right) * down;
}

TEST_P(Presets, StrokesAreDarkAndThin) {
  constexpr double kStep = 0.05;  // pixels
  RenderSettings quiet = settings;
  quiet.noiseSigma = 0;
  const Picture picture = RenderTarget(quiet).picture;
  for (const TruthMark& mark : marks) {
    for (int arm = 0; arm < 4 && !mark.isMissing; ++arm) {
      const PixelPoint middle = Seen(OnArm(mark, arm, 0.5));
      const PixelPoint ahead = Seen(OnArm(mark, arm, 0.51));
      const double length = Distance(middle, ahead);
      double darkWidth = 0;
      double darkest = 255;
      for (double offset = -6; offset <= 6; offset += kStep) {
        const double level =
            Interpolate(picture, {middle.x - (ahead.y - middle.y) / length * offset,
                                  middle.y + (ahead.x - middle.x) / length * offset});
        darkWidth += level < kDarkLevel ? kStep : 0;
        darkest = std::min(darkest, level);
      }
      EXPECT_LE(darkWidth, kMaxDarkWidth) << mark.row << "," << mark.column << " arm " << arm;
      EXPECT_LE(darkest, kMaxStrokeLevel) << mark.row << "," << mark.column << " arm " << arm;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, Presets, testing::ValuesIn(AllPresets()),
                         [](const auto& preset) { return preset.param.name; });

TEST(PresetByName, KnowsItsNamesAndRefusesOthers) {
  EXPECT_EQ(PresetByName("large").width, 4000);
  EXPECT_EQ(PresetByName("dropped").missing.size(), 5u);
  try {
    PresetByName("Easy");
    ADD_FAILURE();
  } catch (const InputError& error) {
    EXPECT_STREQ(error.what(),
                 "--preset: Easy is not one of fisheye, easy, tilted, dropped, large");
  }
}

}  // namespace
}  // namespace quorvex::tests
