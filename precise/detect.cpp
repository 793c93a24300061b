#include <Eigen/LU>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <set>
#include <utility>

#include "interface/quorvex_precise.h"
#include "precise/board_size.h"
#include "precise/final_fit.h"
#include "precise/gray_picture.h"
#include "precise/grid_growth.h"
#include "precise/grid_labels.h"
#include "precise/image_input.h"
#include "precise/median.h"
#include "precise/seed.h"

namespace quorvex::precise {
namespace {

constexpr const char* kSizeStage = "size";
constexpr double kFarthestOff = 50.0;  // px, of marks from the camera that was fitted to them

CameraFacts FactsOf(const CameraFit& fit) {
  CameraFacts facts;
  for (int i = 0; i < 9; ++i) {
    facts.rotation[static_cast<std::size_t>(i)] = fit.model.rotation(i / 3, i % 3);
  }
  for (int i = 0; i < 3; ++i) {
    facts.translation[static_cast<std::size_t>(i)] = fit.model.translation[i];
  }
  facts.focalLength = fit.model.focalLength;
  facts.k1 = fit.model.k1;
  facts.k2 = fit.model.k2;
  facts.k3 = fit.model.k3;
  facts.centreX = fit.model.centre.x();
  facts.centreY = fit.model.centre.y();
  facts.aspect = fit.model.aspect;
  facts.residual = fit.residual;
  return facts;
}

PictureFacts FactsOf(const Grid& grid, double noise) {
  PictureFacts facts;
  facts.noise = noise;
  facts.blur = 0.5 * (grid.facts.sigma[0] + grid.facts.sigma[1]);
  facts.armLength = grid.facts.armEnd;
  facts.camera = FactsOf(grid.camera);
  std::vector<double> pitches;
  std::vector<double> widths;
  for (const GridMark& mark : grid.marks) {
    Eigen::Vector2d pixel;
    Eigen::Matrix2d byLabel;
    if (grid.camera.model.Project({mark.column, mark.row}, pixel, nullptr, &byLabel)) {
      const double across = std::abs(byLabel.determinant());
      for (int stroke = 0; stroke < 2; ++stroke) {
        pitches.push_back(byLabel.col(stroke).norm());
        widths.push_back(grid.facts.strokeWidth[static_cast<std::size_t>(stroke)] * across /
                         byLabel.col(stroke).norm());
      }
    }
  }
  facts.pitch = MedianOf(pitches);
  facts.strokeWidth = MedianOf(widths);
  return facts;
}

void SetPlace(const Eigen::Vector2d& place, const Eigen::Matrix2d& covariance, Mark& mark) {
  mark.x = place.x();
  mark.y = place.y();
  mark.cxx = covariance(0, 0);
  mark.cxy = covariance(0, 1);
  mark.cyy = covariance(1, 1);
}

std::vector<Mark> MarksOf(const Grid& grid, const std::vector<MarkVerdict>& verdicts) {
  std::vector<Mark> marks;
  for (std::size_t i = 0; i < grid.marks.size(); ++i) {
    const GridMark& from = grid.marks[i];
    Mark mark;
    mark.row = from.row;
    mark.column = from.column;
    SetPlace(from.fit.centre, from.fit.covariance, mark);
    for (std::size_t arm = 0; arm < 4; ++arm) {
      mark.seenArms[arm] = from.fit.arms[arm % 2][arm / 2].isSeen;
    }
    mark.verdict = verdicts[i].isDoubtful ? Verdict::kDoubtful : Verdict::kMeasured;
    marks.push_back(mark);
  }
  return marks;
}

bool IsWithin(const GrayPicture& picture, const Eigen::Vector2d& place, double margin) {
  return place.x() >= -margin && place.y() >= -margin &&
         place.x() <= picture.Width() - 1.0 + margin &&
         place.y() <= picture.Height() - 1.0 + margin;
}

// The labels of these rows and columns that have no mark. Most of a large board may lie outside the
// picture, where the map is not asked.
void AddPredicted(const GrayPicture& picture, const Grid& grid, const BoardSize& size,
                  std::vector<Mark>& marks) {
  const BoardMap map(grid.marks, grid.camera);
  std::set<std::pair<int, int>> known;
  for (const Mark& mark : marks) {
    known.insert({mark.row, mark.column});
  }
  for (int row = 0; row < size.rows; ++row) {
    for (int column = 0; column < size.columns; ++column) {
      if (known.count({row, column}) != 0) {
        continue;
      }
      Eigen::Vector2d byCamera;
      if (!grid.camera.model.Project({column, row}, byCamera) ||
          !IsWithin(picture, byCamera, kFarthestOff)) {
        continue;
      }
      const Predicted predicted = map.At(row, column, false);
      if (predicted.isSeen && IsWithin(picture, predicted.pixel, 0.0)) {
        Mark mark;
        mark.row = row;
        mark.column = column;
        SetPlace(predicted.pixel, predicted.covariance, mark);
        mark.verdict = Verdict::kPredicted;
        marks.push_back(mark);
      }
    }
  }
  std::sort(marks.begin(), marks.end(), [](const Mark& a, const Mark& b) {
    return a.row != b.row ? a.row < b.row : a.column < b.column;
  });
}

Result DetectOn(const GrayPicture& picture, const Options& options) {
  Result result;
  const Seed seed = FindSeed(
      picture, options.hasContinuousLines ? BoardLines::kContinuous : BoardLines::kOfMarks);
  result.facts.noise = seed.noise;
  if (seed.marks.empty()) {
    result.stage = "seed";
    result.reason = seed.reason;
    return result;
  }
  Grid grid = GrowGrid(picture, seed);
  if (grid.marks.empty()) {
    result.stage = grid.stage;
    result.reason = grid.reason;
    return result;
  }
  NameRowsAndColumns(grid);
  std::vector<MarkVerdict> verdicts = MeasureFinally(picture, seed.noise, grid);
  if (grid.marks.empty()) {
    result.stage = "check";
    result.reason = "the marks could not be measured again";
    return result;
  }
  NameRowsAndColumns(grid);  // the first row or column may have gone
  const BoardSize board{options.boardRows, options.boardColumns};
  FixedLabels fixed;
  if (board.rows > 0) {
    result.reason = SizeConflict(grid, board);
    if (!result.reason.empty()) {
      result.stage = kSizeStage;
      return result;
    }
    fixed = FixLabels(picture, board, grid);
  }
  result.facts = FactsOf(grid, seed.noise);
  result.facts.hasFixedRows = fixed.rows;
  result.facts.hasFixedColumns = fixed.columns;
  result.marks = MarksOf(grid, verdicts);
  if (options.predictsMissing) {
    const BoardSize found = SizeOf(grid);
    AddPredicted(
        picture, grid,
        {fixed.rows ? board.rows : found.rows, fixed.columns ? board.columns : found.columns},
        result.marks);
  }
  return result;
}

}  // namespace

Result Detect(const ImageView& image, const Options& options) {
  Result result;
  result.reason = WrongInput(image);
  if (result.reason.empty()) {
    result.reason = WrongSize({options.boardRows, options.boardColumns});
  }
  if (!result.reason.empty()) {
    result.stage = "input";
    return result;
  }
  if (options.colour != MarkColour::kLight) {
    result = DetectOn(
        CopyPicture(image.pixels, image.width, image.height, image.stride, Polarity::kDarkMarks),
        options);
  }
  if (options.colour == MarkColour::kLight ||
      (options.colour == MarkColour::kEither && result.marks.empty())) {
    const Result light = DetectOn(
        CopyPicture(image.pixels, image.width, image.height, image.stride, Polarity::kLightMarks),
        options);
    // A board of another size says more than that there are no dark marks.
    if (options.colour == MarkColour::kLight || !light.marks.empty() || light.stage == kSizeStage) {
      result = light;
      result.facts.hasLightMarks = true;
    }
  }
  return result;
}

}  // namespace quorvex::precise
