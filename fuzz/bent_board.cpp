#include "fuzz/bent_board.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace quorvex::fuzz {
namespace {

using tests::CaseRandom;
using tests::TestImage;

constexpr int kReach = 4;              // marks to each side of the middle one
constexpr unsigned char kPaper = 200;  // grey level
constexpr unsigned char kInk = 40;     // grey level

struct Board {
  double centreX = 0.0;  // px
  double centreY = 0.0;
  double pitch = 130.0;  // px
  double turn = 0.0;     // radians
  double skew = 0.0;     // of the columns' direction, radians
  double bow = 0.0;      // of the distance from the middle, lost at the border
  double half = 200.0;   // px from the middle to the border
  double arm = 0.4;      // pitches
  int thickness = 3;     // px
  unsigned char stroke = kInk;
  bool isFlawed = false;  // one mark in four is not as it should be
};

struct Place {
  int x;
  int y;
};

// Where a label lies, in the middle of the board or between marks.
Place PlaceOf(const Board& board, double row, double col) {
  const double u =
      board.pitch * (col * std::cos(board.turn) - row * std::sin(board.turn + board.skew));
  const double v =
      board.pitch * (col * std::sin(board.turn) + row * std::cos(board.turn + board.skew));
  const double scale = 1.0 - board.bow * (u * u + v * v) / (board.half * board.half);
  return {static_cast<int>(std::lround(board.centreX + u * scale)),
          static_cast<int>(std::lround(board.centreY + v * scale))};
}

void DrawArm(const Board& board, Place from, Place to, TestImage& image) {
  tests::DrawLine(from.x, from.y, to.x, to.y, board.thickness, board.stroke, image);
}

void DrawMark(CaseRandom& random, Board board, double row, double col, TestImage& image) {
  int arms = 0xF;
  switch (board.isFlawed ? random.Below(24) : 23) {
    case 0:
      return;
    case 1:
      row += static_cast<double>(random.Fraction(-1, 1)) / 4.0;
      col += static_cast<double>(random.Fraction(-1, 1)) / 4.0;
      break;
    case 2:
      arms = random.Below(16);
      break;
    case 3:
      board.stroke = static_cast<unsigned char>(random.Below(256));
      break;
    case 4:
      board.thickness = random.Between(1, 20);
      break;
    case 5:
      board.arm = random.OneOf({0.05, 0.2, 0.7, 1.0});
      break;
    default:
      break;
  }
  const Place middle = PlaceOf(board, row, col);
  const Place ends[] = {PlaceOf(board, row, col + board.arm), PlaceOf(board, row, col - board.arm),
                        PlaceOf(board, row + board.arm, col), PlaceOf(board, row - board.arm, col)};
  for (int arm = 0; arm < 4; ++arm) {
    if ((arms >> arm & 1) != 0) {
      DrawArm(board, middle, ends[arm], image);
    }
  }
}

// A disc, a box or the whole picture.
void DrawTarget(CaseRandom& random, TestImage& image) {
  const int kind = random.Below(3);
  const int margin = random.Between(0, 40);
  const double radius = 0.5 * std::min(image.width, image.height) - margin;
  for (int y = 0; y < image.height; ++y) {
    for (int x = 0; x < image.width; ++x) {
      const bool isInBox = std::min({x, y, image.width - 1 - x, image.height - 1 - y}) >= margin;
      const bool isInDisc = std::hypot(x - 0.5 * image.width, y - 0.5 * image.height) < radius;
      image.At(x, y) = kind == 0 || (kind == 1 ? isInBox : isInDisc) ? kPaper : 0;
    }
  }
}

// The mean of 3 x 3 pixels, as a lens makes edges soft.
void Blur(TestImage& image) {
  const TestImage sharp = image;
  for (int y = 1; y + 1 < image.height; ++y) {
    const unsigned char* row = sharp.Data() + static_cast<std::size_t>(y) * sharp.stride;
    const unsigned char* rows[] = {row - sharp.stride, row, row + sharp.stride};
    for (int x = 1; x + 1 < image.width; ++x) {
      int sum = 0;
      for (const unsigned char* line : rows) {
        sum += line[x - 1] + line[x] + line[x + 1];
      }
      image.At(x, y) = static_cast<unsigned char>(sum / 9);
    }
  }
}

// Of at most so many grey levels either way.
void AddNoise(int most, std::uint32_t seed, TestImage& image) {
  std::uint32_t state = seed;
  const std::uint32_t levels = static_cast<std::uint32_t>(2 * most + 1);
  for (unsigned char& pixel : image.pixels) {
    state = state * 1664525u + 1013904223u;
    const int level = pixel + static_cast<int>((state >> 16) % levels) - most;
    pixel = static_cast<unsigned char>(std::clamp(level, 0, 255));
  }
}

// Over everything else.
void AddFaults(CaseRandom& random, TestImage& image) {
  for (int i = random.OneOf({0, 0, 0, 0, 0, 1, 6}); i > 0; --i) {
    tests::DrawRandomLine(random, random.OneOf<unsigned char>({0, kInk, kPaper, 255}), image);
  }
  if (random.OneIn(8)) {
    tests::FillRandomBox(random, random.OneOf<unsigned char>({0, 90, kPaper, 255}), image);
  }
  AddNoise(random.OneOf({0, 0, 0, 0, 1, 3, 10, 60}), random.Next(), image);
}

}  // namespace

TestImage RandomBentBoard(CaseRandom& random) {
  const int least = random.OneIn(4) ? 50 : 90;  // the marks of smaller pictures are few
  const int width = 4 * random.Between(least, 200);
  const int height = random.OneIn(2) ? width : 4 * random.Between(least, 200);
  TestImage image = tests::FlatImage({width, height}, 0);
  DrawTarget(random, image);
  Board board;
  board.centreX = 0.5 * width + random.Between(-40, 40);
  board.centreY = 0.5 * height + random.Between(-40, 40);
  board.pitch = random.OneIn(8) ? random.Between(30, 255) : random.Between(118, 160);
  board.turn = static_cast<double>(random.Fraction(-1, 1)) * random.OneOf({0.8, 0.3, 0.1, 0.1});
  board.skew = random.OneIn(4) ? 0.2 * static_cast<double>(random.Fraction(-1, 1)) : 0.0;
  board.bow = random.OneIn(2) ? 0.1 * static_cast<double>(random.Fraction(-1, 2)) : 0.0;
  board.half = 0.5 * std::hypot(width, height);
  board.arm = random.OneOf({0.34, 0.34, 0.38, 0.45});
  board.thickness = random.OneOf({3, 3, 2, 4});
  board.stroke = random.OneOf<unsigned char>({120, 120, kInk, 70});
  board.isFlawed = random.OneIn(3);
  for (int row = -kReach; row <= kReach; ++row) {
    for (int col = -kReach; col <= kReach; ++col) {
      DrawMark(random, board, row, col, image);
    }
  }
  if (!random.OneIn(4)) {
    Blur(image);
  }
  AddFaults(random, image);
  return image;
}

}  // namespace quorvex::fuzz
