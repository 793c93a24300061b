#include "fuzz/steered_picture.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "fuzz/stroke_canvas.h"

namespace quorvex::fuzz {
namespace {

constexpr int kLeastSide = 16;       // px
constexpr int kMostSide = 200;       // px; an engine needs many pictures a second
constexpr int kBoardSide = 90;       // px; smaller pictures rarely hold six marks
constexpr int kMostLines = 8;        // rows or columns of a board
constexpr int kMostLargeSide = 800;  // px; one board in some is large, and then has more lines
constexpr int kMostLargeLines = 20;
constexpr double kPi = 3.14159265358979323846;

// The sides in pixels, both ends inclusive.
Canvas MakeCanvas(InputBytes& input, int leastSide, int mostSide, double level) {
  Canvas canvas;
  canvas.width = static_cast<int>(std::lround(input.Real(leastSide, mostSide)));
  canvas.height = static_cast<int>(std::lround(input.Real(leastSide, mostSide)));
  canvas.levels.assign(
      static_cast<std::size_t>(canvas.width) * static_cast<std::size_t>(canvas.height), level);
  return canvas;
}

struct Board {
  double pitch = 30.0;   // px
  double turn = 0.0;     // radians
  double skew = 0.0;     // of the rows' direction, radians
  double bow = 0.0;      // of the distance from the middle, at the corners of a picture
  precise::Point first;  // px
  double arm = 0.4;      // pitches
  double stroke = 3.0;   // px
  double level = 0.0;    // grey level of the marks
};

// The place of a label, bent as by a lens.
precise::Point PlaceOf(const Board& board, const Canvas& canvas, double row, double column) {
  const double rowTurn = board.turn + 0.5 * kPi + board.skew;
  const double x =
      board.first.x + board.pitch * (column * std::cos(board.turn) + row * std::cos(rowTurn));
  const double y =
      board.first.y + board.pitch * (column * std::sin(board.turn) + row * std::sin(rowTurn));
  const double dx = x - 0.5 * canvas.width;
  const double dy = y - 0.5 * canvas.height;
  const double half = 0.5 * std::hypot(canvas.width, canvas.height);
  const double scale = 1.0 + board.bow * (dx * dx + dy * dy) / (half * half);
  return {0.5 * canvas.width + dx * scale, 0.5 * canvas.height + dy * scale};
}

// One cross; one in some is missing, shifted, turned, paler or lacks an arm.
void DrawMark(InputBytes& input, Board board, double row, double column, Canvas& canvas,
              std::vector<precise::Point>& places) {
  int arms = 0xF;
  switch (input.Between(0, 63)) {
    case 63:
      return;
    case 62:
      row += input.Real(-0.5, 0.5);
      column += input.Real(-0.5, 0.5);
      break;
    case 61:
      board.level = input.Real(0.0, 255.0);
      break;
    case 60:
      arms = input.Byte();
      break;
    case 59:
      board.arm = input.Real(0.05, 1.0);
      break;
    case 58:
      board.stroke = input.Real(0.2, 12.0);
      break;
    default:
      break;
  }
  Stroke stroke;
  stroke.from = PlaceOf(board, canvas, row, column);
  stroke.width = board.stroke;
  stroke.level = board.level;
  places.push_back(stroke.from);
  for (int arm = 0; arm < 4; ++arm) {
    if ((arms >> arm & 1) != 0) {
      const double length = arm < 2 ? board.arm : -board.arm;
      stroke.to = arm % 2 == 0 ? PlaceOf(board, canvas, row, column + length)
                               : PlaceOf(board, canvas, row + length, column);
      Draw(stroke, canvas);
    }
  }
  // The middle is dark, too, where arms begin with soft edges.
  stroke.from.x -= 0.5 * stroke.width;
  stroke.to = {stroke.from.x + stroke.width, stroke.from.y};
  Draw(stroke, canvas);
}

Canvas DrawBoard(InputBytes& input, std::vector<precise::Point>& places) {
  const bool areMarksLight = input.OneIn(4);
  const double level = areMarksLight ? input.Real(0.0, 120.0) : input.Real(120.0, 255.0);
  const bool isLarge = input.OneIn(12);
  const int leastSide = isLarge ? kMostSide : input.OneIn(8) ? kLeastSide : kBoardSide;
  Canvas canvas = MakeCanvas(input, leastSide, isLarge ? kMostLargeSide : kMostSide, level);
  Board board;
  board.level = areMarksLight ? input.Real(120.0, 255.0) : input.Real(0.0, 120.0);
  const int mostLines = isLarge ? kMostLargeLines : kMostLines;
  const int rows = input.Between(2, mostLines);
  const int columns = input.Between(2, mostLines);
  // Mostly so that the board fills the picture.
  const double fitting = std::min(canvas.width / (columns + 0.0), canvas.height / (rows + 0.0));
  board.pitch = fitting * input.Real(0.7, 1.2);
  board.turn = input.Real(-0.35, 0.35);
  board.skew = input.Real(-0.2, 0.2);
  board.bow = input.Real(-0.35, 0.2);
  board.arm = input.Real(0.25, 0.52);
  board.stroke = std::max(1.0, board.pitch * input.Real(0.04, 0.2));
  board.first = {
      0.5 * (canvas.width - (columns - 1) * board.pitch) + board.pitch * input.Real(-0.3, 0.3),
      0.5 * (canvas.height - (rows - 1) * board.pitch) + board.pitch * input.Real(-0.3, 0.3)};
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      DrawMark(input, board, row, column, canvas, places);
    }
  }
  return canvas;
}

void DrawStrokes(InputBytes& input, int count, Canvas& canvas) {
  for (int i = 0; i < count; ++i) {
    Stroke stroke;
    stroke.from = {input.Real(-20.0, canvas.width + 20.0), input.Real(-20.0, canvas.height + 20.0)};
    const double length = input.Real(0.0, 150.0);
    const double angle = input.Real(0.0, 2.0 * kPi);
    stroke.to = {stroke.from.x + length * std::cos(angle),
                 stroke.from.y + length * std::sin(angle)};
    stroke.width = input.OneIn(8) ? input.Real(0.5, 60.0) : input.Real(0.5, 6.0);
    stroke.level = input.Byte();
    Draw(stroke, canvas);
  }
}

// Noise that is nearly uniform, of at most so many grey levels either way.
void AddNoise(double most, std::uint32_t seed, Canvas& canvas) {
  std::uint32_t state = seed;
  for (double& level : canvas.levels) {
    state = state * 1664525u + 1013904223u;
    level += most * (static_cast<double>(state >> 16) / 32768.0 - 1.0);
  }
}

Canvas RawCanvas(InputBytes& input) {
  Canvas canvas = MakeCanvas(input, kLeastSide, kMostSide, 0.0);
  std::vector<double> levels;
  while (input.Left() > 0) {
    levels.push_back(input.Byte());
  }
  for (std::size_t i = 0; i < canvas.levels.size() && !levels.empty(); ++i) {
    canvas.levels[i] = levels[i % levels.size()];
  }
  return canvas;
}

SteeredPicture Written(Canvas& canvas, int gap, bool runsUp) {
  SteeredPicture picture;
  const std::ptrdiff_t stride = canvas.width + gap;
  const std::ptrdiff_t lastRow = (canvas.height - 1) * stride;
  picture.bytes.assign(static_cast<std::size_t>(lastRow + canvas.width), 0x5A);
  picture.view = {picture.bytes.data() + (runsUp ? lastRow : 0), canvas.width, canvas.height,
                  runsUp ? -stride : stride};
  for (int y = 0; y < canvas.height; ++y) {
    for (int x = 0; x < canvas.width; ++x) {
      const std::ptrdiff_t row = runsUp ? canvas.height - 1 - y : y;
      picture.bytes[static_cast<std::size_t>(row * stride + x)] =
          static_cast<unsigned char>(std::lround(std::clamp(canvas.At(x, y), 0.0, 255.0)));
    }
  }
  return picture;
}

}  // namespace

SteeredPicture MakePicture(InputBytes& input) {
  const int gap = input.OneIn(2) ? input.Between(0, 9) : 0;
  const bool runsUp = input.OneIn(4);
  const int kind = input.Between(0, 7);
  if (kind == 7) {
    Canvas raw = RawCanvas(input);
    return Written(raw, gap, runsUp);
  }
  std::vector<precise::Point> places;
  Canvas canvas =
      kind < 6 ? DrawBoard(input, places) : MakeCanvas(input, kLeastSide, kMostSide, input.Byte());
  DrawStrokes(input, kind < 6 ? input.Between(0, 4) : input.Between(1, 40), canvas);
  const double noise = input.OneIn(4) ? input.Real(0.0, 100.0) : input.Real(0.0, 6.0);
  const std::uint32_t seed = static_cast<std::uint32_t>(input.Byte());
  AddNoise(noise, seed, canvas);
  SteeredPicture picture = Written(canvas, gap, runsUp);
  picture.places = places;
  return picture;
}

SteeredPicture MakeWrongPicture(InputBytes& input) {
  SteeredPicture picture;
  picture.bytes.assign(40 * 40, 128);
  picture.view = {picture.bytes.data(), 40, 40, 40};
  switch (input.Between(0, 4)) {
    case 0:
      picture.view.pixels = nullptr;
      break;
    case 1:
      picture.view.width = input.Between(-200, kLeastSide - 1);
      break;
    case 2:
      picture.view.height = input.Between(-200, kLeastSide - 1);
      break;
    case 3:
      picture.view.stride = input.Between(-39, 39);
      break;
    default:
      picture.view.width = std::numeric_limits<int>::max();
      picture.view.stride = input.Between(-200, 55);
      break;
  }
  return picture;
}

}  // namespace quorvex::fuzz
