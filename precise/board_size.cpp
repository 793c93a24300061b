#include "precise/board_size.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "precise/grid_labels.h"

namespace quorvex::precise {
namespace {

constexpr int kMostLines = 1000;      // rows or columns of a board
constexpr int kLeastPlaces = 3;       // blank places that end a board, or as many as its lines have
constexpr double kFromTip = 0.04;     // pitches along an arm from one sample to the next
constexpr int kTipSamples = 3;        // from the tip inwards
constexpr double kAside = 0.1;        // pitches that an arm may be off from where it is expected
constexpr double kLeastStep = 0.005;  // pitches across an arm, from one look to the next
constexpr double kDarkPart = 0.5;     // of a stroke's darkness, from which it is seen
constexpr double kBorder = 1.0;       // px within the picture that samples stay

enum class Beyond { kUnseen, kBlank, kTaken };

// Bilinear; false outside the picture.
bool LevelAt(const GrayPicture& picture, const CameraModel& camera, const Eigen::Vector2d& label,
             double& level) {
  Eigen::Vector2d place;
  if (!camera.Project(label, place) || !(place.x() >= kBorder) || !(place.y() >= kBorder) ||
      !(place.x() < picture.Width() - 1 - kBorder) ||
      !(place.y() < picture.Height() - 1 - kBorder)) {
    return false;
  }
  const int x = static_cast<int>(place.x());
  const int y = static_cast<int>(place.y());
  const double right = place.x() - x;
  const double down = place.y() - y;
  level = (1.0 - down) * ((1.0 - right) * picture.At(x, y) + right * picture.At(x + 1, y)) +
          down * ((1.0 - right) * picture.At(x, y + 1) + right * picture.At(x + 1, y + 1));
  return true;
}

// What is seen where the next mark outwards would begin: the end of its nearer arm.
Beyond LookBeyond(const GrayPicture& picture, const Grid& grid, const GridMark& mark,
                  const Eigen::Vector2d& outwards) {
  const CameraModel& camera = grid.camera.model;
  const Eigen::Vector2d label(mark.column, mark.row);
  const Eigen::Vector2d aside(outwards.y(), outwards.x());
  double before = 0.0;
  double after = 0.0;
  if (!LevelAt(picture, camera, label - 0.5 * outwards - 0.5 * aside, before) ||
      !LevelAt(picture, camera, label - 0.5 * outwards + 0.5 * aside, after)) {
    return Beyond::kUnseen;
  }
  const double width = grid.facts.strokeWidth[outwards.x() != 0.0 ? 0 : 1];
  const double step = std::max(0.5 * width, kLeastStep);
  const int steps = static_cast<int>(std::ceil(kAside / step));
  double darkest = std::numeric_limits<double>::infinity();
  for (int i = -steps; i <= steps; ++i) {
    double mean = 0.0;
    for (int k = 1; k <= kTipSamples; ++k) {
      const double out = 1.0 - grid.facts.armEnd + kFromTip * k;
      double level = 0.0;
      if (!LevelAt(picture, camera, label + out * outwards + i * step * aside, level)) {
        return Beyond::kUnseen;
      }
      mean += level / kTipSamples;
    }
    darkest = std::min(darkest, mean);
  }
  const double board = 0.5 * (before + after);
  return darkest < board - kDarkPart * mark.fit.darkness ? Beyond::kTaken : Beyond::kBlank;
}

// Whether the board ends with the outermost line of the grid on one side.
bool IsEnd(const GrayPicture& picture, const Grid& grid, const BoardSize& found,
           const Eigen::Vector2d& outwards) {
  int blank = 0;
  int taken = 0;
  for (const GridMark& mark : grid.marks) {
    const bool isOutermost = outwards.x() < 0.0   ? mark.column == 0
                             : outwards.x() > 0.0 ? mark.column == found.columns - 1
                             : outwards.y() < 0.0 ? mark.row == 0
                                                  : mark.row == found.rows - 1;
    if (isOutermost) {
      const Beyond beyond = LookBeyond(picture, grid, mark, outwards);
      blank += beyond == Beyond::kBlank ? 1 : 0;
      taken += beyond == Beyond::kTaken ? 1 : 0;
    }
  }
  const int lineLength = outwards.x() != 0.0 ? found.rows : found.columns;
  return blank >= std::min(kLeastPlaces, lineLength) && blank > taken;
}

// Lines that are missing before the first found one; -1: not known.
int MissingBefore(const GrayPicture& picture, const Grid& grid, const BoardSize& found,
                  const Eigen::Vector2d& axis, int missing) {
  if (missing == 0) {
    return 0;
  }
  const bool isFirst = IsEnd(picture, grid, found, -axis);
  const bool isLast = IsEnd(picture, grid, found, axis);
  return isFirst == isLast ? -1 : isFirst ? 0 : missing;
}

std::string Text(const BoardSize& size, const char* rows, const char* columns) {
  return std::to_string(size.rows) + rows + " x " + std::to_string(size.columns) + columns;
}

bool IsLineCount(int count) { return count >= 1 && count <= kMostLines; }

}  // namespace

std::string WrongSize(const BoardSize& board) {
  const bool isUnknown = board.rows == 0 && board.columns == 0;
  return isUnknown || (IsLineCount(board.rows) && IsLineCount(board.columns))
             ? ""
             : "a board has 1 to 1000 rows and 1 to 1000 columns, or both are 0";
}

BoardSize SizeOf(const Grid& grid) {
  BoardSize found;
  for (const GridMark& mark : grid.marks) {
    found.rows = std::max(found.rows, mark.row + 1);
    found.columns = std::max(found.columns, mark.column + 1);
  }
  return found;
}

std::string SizeConflict(const Grid& grid, const BoardSize& board) {
  const BoardSize found = SizeOf(grid);
  if (found.rows <= board.rows && found.columns <= board.columns) {
    return "";
  }
  const bool fitsTurned = found.rows <= board.columns && found.columns <= board.rows;
  return Text(found, " rows", " columns") + " were found on a board of " + Text(board, "", "") +
         (fitsTurned ? ", where they would fit turned by a right angle" : "");
}

FixedLabels FixLabels(const GrayPicture& picture, const BoardSize& board, Grid& grid) {
  const BoardSize found = SizeOf(grid);
  const int rows =
      MissingBefore(picture, grid, found, Eigen::Vector2d::UnitY(), board.rows - found.rows);
  const int columns =
      MissingBefore(picture, grid, found, Eigen::Vector2d::UnitX(), board.columns - found.columns);
  MoveOrigin(grid, -std::max(rows, 0), -std::max(columns, 0));
  return {rows >= 0, columns >= 0};
}

}  // namespace quorvex::precise
