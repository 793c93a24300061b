#include "tools/render/render_target.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tools/errors.h"
#include "tools/render/presets.h"

namespace quorvex::tests {

using namespace tools;

namespace {

// 5 x 4 marks about 140 px apart, no noise, even light.
RenderSettings SmallBoard(CameraModel model) {
  RenderSettings settings = PresetByName("fisheye");
  settings.model = model;
  settings.width = 820;
  settings.height = 660;
  settings.rows = 4;
  settings.columns = 5;
  settings.focalLength = 620;
  settings.distance = 170;
  settings.rotation = 5;
  settings.tiltX = 6;
  settings.tiltY = -5;
  settings.gradientX = 0;
  settings.gradientY = 0;
  settings.noiseSigma = 0;
  if (model == CameraModel::kKannalaBrandt) {
    settings.k1 = -0.04;
    settings.k2 = 0.01;
  }
  return settings;
}

struct Stroke {
  double middle;  // pixels, where the stroke crosses the line through the mark's nearest pixel
  double slope;   // pixels per pixel
};

// Fits a parabola to the darkness-weighted middles of a stroke on both sides of the crossing;
// `darkness(along, across)` takes offsets from the mark's nearest pixel.
template <typename Darkness>
Stroke MeasureStroke(const Darkness& darkness) {
  constexpr int kNearest = 10;   // pixels; nearer the other stroke is in the way
  constexpr int kFarthest = 26;  // pixels; the stroke stays within reach so far
  constexpr int kReach = 10;
  double count = 0, sum2 = 0, sum4 = 0, sum = 0, sumFirst = 0, sumSecond = 0;
  for (int along = -kFarthest; along <= kFarthest; ++along) {
    if (std::abs(along) < kNearest) {
      continue;
    }
    double weight = 0;
    double moment = 0;
    for (int across = -kReach; across <= kReach; ++across) {
      weight += darkness(along, across);
      moment += across * darkness(along, across);
    }
    const double middle = moment / weight;
    const double square = 1.0 * along * along;
    count += 1;
    sum2 += square;
    sum4 += square * square;
    sum += middle;
    sumFirst += along * middle;
    sumSecond += square * middle;
  }
  return {(sum4 * sum - sum2 * sumSecond) / (count * sum4 - sum2 * sum2), sumFirst / sum2};
}

// The crossing of the two strokes as the picture shows it.
TruthMark MeasureMark(const Picture& picture, const TruthMark& mark, double boardLevel) {
  const int x = static_cast<int>(std::lround(mark.x));
  const int y = static_cast<int>(std::lround(mark.y));
  const Stroke upright = MeasureStroke(
      [&](int along, int across) { return boardLevel - picture.At(x + across, y + along); });
  const Stroke level = MeasureStroke(
      [&](int along, int across) { return boardLevel - picture.At(x + along, y + across); });
  const double offsetX =
      (upright.middle + upright.slope * level.middle) / (1 - upright.slope * level.slope);
  const double offsetY = level.middle + level.slope * offsetX;
  return {mark.row, mark.column, x + offsetX, y + offsetY, false};
}

class TruthOfModel : public testing::TestWithParam<CameraModel> {};

TEST_P(TruthOfModel, AgreesWithWhatThePictureShows) {
  const RenderSettings settings = SmallBoard(GetParam());
  const RenderedTarget target = RenderTarget(settings);
  ASSERT_EQ(target.marks.size(), 20u);
  double errorX = 0;
  double errorY = 0;
  double squares = 0;
  for (const TruthMark& mark : target.marks) {
    const TruthMark seen = MeasureMark(target.picture, mark, settings.boardLevel);
    EXPECT_NEAR(seen.x, mark.x, 0.025) << mark.row << "," << mark.column;
    EXPECT_NEAR(seen.y, mark.y, 0.025) << mark.row << "," << mark.column;
    errorX += seen.x - mark.x;
    errorY += seen.y - mark.y;
    squares += std::pow(seen.x - mark.x, 2) + std::pow(seen.y - mark.y, 2);
  }
  EXPECT_LT(std::sqrt(squares / 40), 0.01);  // root mean square of a coordinate
  EXPECT_NEAR(errorX / 20, 0, 0.003);
  EXPECT_NEAR(errorY / 20, 0, 0.003);
}

INSTANTIATE_TEST_SUITE_P(All, TruthOfModel,
                         testing::Values(CameraModel::kEquidistant, CameraModel::kKannalaBrandt,
                                         CameraModel::kPinhole));

TEST(RenderTarget, ShowsTheBoardUprightAndNotMirrored) {
  RenderSettings settings = SmallBoard(CameraModel::kEquidistant);
  settings.missing = {{0, 1}};
  const RenderedTarget target = RenderTarget(settings);
  for (const TruthMark& mark : target.marks) {
    const int level = target.picture.At(static_cast<int>(std::lround(mark.x)),
                                        static_cast<int>(std::lround(mark.y)));
    EXPECT_EQ(level > 150, mark.row == 0 && mark.column == 1) << mark.row << "," << mark.column;
    EXPECT_EQ(mark.isMissing, mark.row == 0 && mark.column == 1);
  }
  EXPECT_LT(target.marks[0].x, target.marks[4].x);
  EXPECT_LT(target.marks[0].y, target.marks[15].y);
}

TEST(RenderTarget, PoseMovesTheBoardTheWayItsNamesSay) {
  RenderSettings settings = SmallBoard(CameraModel::kPinhole);
  settings.tiltX = settings.tiltY = settings.rotation = 0;
  const auto spacing = [](const std::vector<TruthMark>& marks, std::size_t a, std::size_t b) {
    return std::hypot(marks[a].x - marks[b].x, marks[a].y - marks[b].y);
  };
  const std::vector<TruthMark> straight = ProjectMarks(settings);
  EXPECT_NEAR(spacing(straight, 0, 1), 620 * 40 / 170.0, 1e-9);

  settings.tiltX = 10;  // the lower edge moves away and becomes smaller
  std::vector<TruthMark> marks = ProjectMarks(settings);
  EXPECT_LT(spacing(marks, 15, 16), spacing(marks, 0, 1));
  settings.tiltX = 0;
  settings.tiltY = 10;  // the right edge comes nearer and becomes larger
  marks = ProjectMarks(settings);
  EXPECT_GT(spacing(marks, 4, 9), spacing(marks, 0, 5));
  settings.tiltY = 0;
  settings.rotation = 5;  // clockwise: the right end of a row goes down
  marks = ProjectMarks(settings);
  EXPECT_GT(marks[4].y, marks[0].y);
  settings.rotation = 0;
  settings.shiftX += 3;
  settings.shiftY += 2;
  marks = ProjectMarks(settings);
  EXPECT_NEAR(marks[7].x - straight[7].x, 620 * 3 / 170.0, 1e-9);
  EXPECT_NEAR(marks[7].y - straight[7].y, 620 * 2 / 170.0, 1e-9);
}

TEST(RenderTarget, SameSeedSameBytesOtherSeedOtherBytes) {
  RenderSettings settings = SmallBoard(CameraModel::kEquidistant);
  settings.noiseSigma = 2;
  const Picture first = RenderTarget(settings).picture;
  EXPECT_EQ(RenderTarget(settings).picture.pixels, first.pixels);
  ++settings.seed;
  EXPECT_NE(RenderTarget(settings).picture.pixels, first.pixels);
}

TEST(RenderTarget, LightGrowsTowardsTheGradient) {
  RenderSettings settings = SmallBoard(CameraModel::kEquidistant);
  settings.backgroundLevel = 100;
  settings.gradientX = 0.2;
  settings.gradientY = -0.1;
  const Picture picture = RenderTarget(settings).picture;
  EXPECT_EQ(picture.At(0, 0), 90);
  EXPECT_EQ(picture.At(819, 0), 130);
  EXPECT_EQ(picture.At(0, 659), 70);
  EXPECT_EQ(picture.At(819, 659), 110);
}

TEST(RenderTarget, MarksOutsideThePictureAreRefused) {
  RenderSettings settings = SmallBoard(CameraModel::kEquidistant);
  settings.shiftX += 200;
  EXPECT_THROW(RenderTarget(settings), InputError);
}

}  // namespace
}  // namespace quorvex::tests
